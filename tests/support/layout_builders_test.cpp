#include <gtest/gtest.h>

#include <string>

#include "support/class_def_builder.h"
#include "support/context_builder.h"
#include "support/coverage_builder.h"
#include "support/gsub_builder.h"
#include "support/layout_table_builder.h"
#include "support/offset_table.h"

namespace qxtest {
namespace {

std::string hex(const std::string& bytes) {
  static constexpr char kDigits[] = "0123456789abcdef";
  std::string text;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const auto byte = static_cast<unsigned char>(bytes[i]);
    if (i > 0 && i % 2 == 0) text += ' ';
    text += {kDigits[byte >> 4], kDigits[byte & 15]};
  }
  return text;
}

TEST(OffsetTable, PutsTablesBehindAndOffsetsInPlace) {
  EXPECT_EQ(hex(OffsetTable().u16(1).offset("ab").offset("").offset32("cd").u16(7).str()),
            "0001 000c 0000 0000 000e 0007 6162 6364");
  EXPECT_EQ(hex(OffsetTable().countedOffsets({"ab", "cd"}).str()), "0002 0006 0008 6162 6364");
}

TEST(CoverageBuilder, WritesBothFormats) {
  EXPECT_EQ(hex(coverage({3, 5})), "0001 0002 0003 0005");
  EXPECT_EQ(hex(coverageOfRanges({{3, 5, 0}})), "0002 0001 0003 0005 0000");
}

TEST(ClassDefBuilder, WritesBothFormats) {
  EXPECT_EQ(hex(classDef(3, {1, 2})), "0001 0003 0002 0001 0002");
  EXPECT_EQ(hex(classDefOfRanges({{3, 5, 1}})), "0002 0001 0003 0005 0001");
}

TEST(ClassDefBuilder, WritesGdef) {
  EXPECT_EQ(hex(gdefTable("ab", "cd")), "0001 0000 000c 0000 0000 000e 6162 6364");
  EXPECT_EQ(hex(gdefTable("ab")), "0001 0000 000c 0000 0000 0000 6162");
}

TEST(GsubBuilder, WritesSubTables) {
  EXPECT_EQ(hex(singleSubst("cc", -1)), "0001 0006 ffff 6363");
  EXPECT_EQ(hex(singleSubst("cc", std::vector<unsigned>{8})), "0002 0008 0001 0008 6363");
  EXPECT_EQ(hex(multipleSubst("cc", {{8, 9}})), "0001 0008 0001 000a 6363 0002 0008 0009");
  EXPECT_EQ(hex(alternateSubst("cc", {{8}})), "0001 0008 0001 000a 6363 0001 0008");
  EXPECT_EQ(hex(ligatureSubst("cc", {{{9, {2}}}})),
            "0001 0008 0001 000a 6363 0001 0004 0009 0002 0002");
  EXPECT_EQ(hex(reverseChainSubst("cc", {"bb"}, {"ll"}, {9})),
            "0001 0010 0001 0012 0001 0014 0001 0009 6363 6262 6c6c");
}

TEST(ContextBuilder, WritesContexts) {
  EXPECT_EQ(hex(context1("cc", {{{{2}, {{0, 1}}}}})),
            "0001 0008 0001 000a 6363 0001 0004 0002 0001 0002 0000 0001");
  EXPECT_EQ(hex(context2("cc", "dd", {{}})), "0002 000a 000c 0001 0000 6363 6464");
  EXPECT_EQ(hex(context3({"cc"}, {{0, 1}})), "0003 0001 0001 000c 0000 0001 6363");
}

TEST(ContextBuilder, WritesChainedContexts) {
  EXPECT_EQ(hex(chainContext1("cc", {{{{1}, {2}, {3}, {{0, 1}}}}})),
            "0001 0008 0001 000a 6363 0001 0004 0001 0001 0002 0002 0001 0003 0001 0000 0001");
  EXPECT_EQ(hex(chainContext2("cc", "bb", "ii", "", {{}})),
            "0002 000e 0010 0012 0000 0001 0000 6363 6262 6969");
  EXPECT_EQ(hex(chainContext3({"bb"}, {"ii"}, {"ll"}, {{0, 1}})),
            "0003 0001 0014 0001 0016 0001 0018 0001 0000 0001 6262 6969 6c6c");
}

TEST(LayoutTableBuilder, WritesLookupsAndExtensions) {
  EXPECT_EQ(hex(extensionSubTable(4, "ss")), "0001 0004 0000 0008 7373");
  EXPECT_EQ(hex(langSysTable(0xFFFF, {3})), "0000 ffff 0001 0003");
  LayoutTableBuilder table;
  EXPECT_EQ(table.lookup(1, 8, {"ss"}), 0u);
  EXPECT_EQ(table.lookup(2, 0, {}), 1u);
  const std::string bytes = table.str();
  EXPECT_EQ(hex(bytes),
            "0001 0000 000a 000c 000e 0000 0000 "
            "0002 0006 0010 0001 0008 0001 0008 7373 0002 0000 0000");
}

TEST(LayoutTableBuilder, WritesScriptsAndFeatures) {
  LayoutTableBuilder table;
  EXPECT_EQ(table.feature("liga", {7}), 0u);
  table.script("latn", {{0}}, {{"TRK", {}}});
  EXPECT_EQ(hex(table.str()),
            "0001 0000 000a 002a 0038 "
            "0001 6c61 746e 0008 000a 0001 5452 4b20 0012 0000 ffff 0001 0000 0000 ffff 0000 "
            "0001 6c69 6761 0008 0000 0001 0007 0000");
}

TEST(LayoutTableBuilder, PutsSingleLookupsIntoOneScript) {
  LayoutTableBuilder table;
  EXPECT_EQ(table.onlyLookup("test", 1, 0, {}), 0u);
  LayoutTableBuilder same;
  same.script("test", {{same.feature("test", {same.lookup(1, 0, {})})}});
  EXPECT_EQ(hex(table.str()), hex(same.str()));
}

}  // namespace
}  // namespace qxtest
