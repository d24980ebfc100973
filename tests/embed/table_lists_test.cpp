#include "embed/table_lists.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/be_bytes.h"

namespace QXFontService_NS::embed {
namespace {

using Tags = std::vector<std::string>;

Tags tagsOf(const std::uint32_t* list) {
  Tags tags;
  for (; *list != 0; ++list) tags.push_back(qxtest::BeBytes().u32(*list).str());
  return tags;
}

TEST(TableLists, Embed) {
  EXPECT_EQ(tagsOf(kEmbedTables.data()),
            (Tags{"OS/2", "cvt ", "fpgm", "head", "hhea", "hmtx", "maxp", "post", "prep"}));
}

TEST(TableLists, EmbedWithCmap) {
  EXPECT_EQ(tagsOf(kEmbedTablesWithCmap.data()),
            (Tags{"OS/2", "cmap", "cvt ", "fpgm", "head", "hhea", "hmtx", "maxp", "post", "prep"}));
}

TEST(TableLists, PostScript) {
  EXPECT_EQ(tagsOf(kPostScriptTables.data()),
            (Tags{"cvt ", "fpgm", "head", "hhea", "hmtx", "maxp", "prep"}));
}

TEST(TableLists, AllEndWithAZero) {
  EXPECT_EQ(kEmbedTables.back(), 0u);
  EXPECT_EQ(kEmbedTablesWithCmap.back(), 0u);
  EXPECT_EQ(kPostScriptTables.back(), 0u);
}

}  // namespace
}  // namespace QXFontService_NS::embed
