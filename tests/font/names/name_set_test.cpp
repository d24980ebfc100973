#include "font/names/name_set.h"

#include <gtest/gtest.h>

namespace QXFontService_NS {
namespace {

TEST(NameSet, KeepsEachSlotWhateverTheOrder) {
  FS_NameSet set;
  set.set(10, u"licence");
  set.set(0, u"family");
  set.set(4, u"ps");
  set.set(4, u"longer");
  set.shrink();
  EXPECT_EQ(set.get(0), UnicodeString("family"));
  EXPECT_EQ(set.get(NameSlot::postScriptName), UnicodeString("longer"));
  EXPECT_EQ(set.get(10), UnicodeString("licence"));
  EXPECT_TRUE(set.get(1).isEmpty());
  EXPECT_TRUE(set.has(0));
  EXPECT_FALSE(set.has(3));
  set.set(NameSlot::family, u"");
  EXPECT_FALSE(set.has(0));
  EXPECT_EQ(set.get(10), UnicodeString("licence"));
}

TEST(NameSet, NumbersThatAreNoSlotAreEmpty) {
  FS_NameSet set;
  set.set(-1, u"x");
  set.set(11, u"x");
  EXPECT_TRUE(set.get(-1).isEmpty());
  EXPECT_TRUE(set.get(11).isEmpty());
  for (int slot = 0; slot < kNameSlotCount; ++slot) EXPECT_FALSE(set.has(slot));
}

}  // namespace
}  // namespace QXFontService_NS
