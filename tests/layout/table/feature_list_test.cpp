#include "layout/table/feature_list.h"

#include <gtest/gtest.h>

#include "layout/guard/spent_budgets.h"
#include "layout/table/graph_reader.h"
#include "layout/test_font.h"
#include "support/be_bytes.h"
#include "support/layout_table_builder.h"
#include "support/offset_table.h"

namespace QXFontService_NS::layout {
namespace {

using qxtest::LayoutTableBuilder;
using Indices = std::vector<unsigned short>;

Indices indicesOf(const TTI_Feature& feature) {
  return {feature.lookups.begin(), feature.lookups.end()};
}

TEST(FeatureList, KeepsTagsAndLookupsAsTheyStand) {
  LayoutTableBuilder table;
  table.feature("liga", {7, 3, 7});
  table.feature("kern", {});
  const qxtest::TestFont font(table.str());
  const auto& features = font.gsub->featureList.features;
  ASSERT_EQ(features.size(), 2u);
  EXPECT_EQ(features[0].tag, 0x6C696761u);
  EXPECT_EQ(indicesOf(features[0]), (Indices{7, 3, 7}));
  EXPECT_TRUE(features[1].lookups.empty());
  EXPECT_EQ(font.gsub->featureList.vert, nullptr);
}

TEST(FeatureList, NotesTheFirstVerticalFeature) {
  LayoutTableBuilder table;
  for (const char* tag : {"vrt2", "vert", "vert"}) table.feature(tag, {});
  const qxtest::TestFont font(table.str());
  EXPECT_EQ(font.gsub->featureList.vert, &font.gsub->featureList.features[1]);
}

TEST(FeatureList, CountOfLookupsIsClippedToWhatIsThere) {
  LayoutTableBuilder table;
  table.feature("liga", {7});
  std::string bytes = table.str();
  bytes = bytes.substr(0, bytes.size() - 2);  // the empty lookup list
  bytes[8] = bytes[9] = 0;
  bytes[bytes.size() - 3] = '\x7F';
  const qxtest::TestFont font(bytes);
  EXPECT_EQ(indicesOf(font.gsub->featureList.features.at(0)), (Indices{7}));
}

// 10,000 features, each of the 32,000 lookups that begin a word further.
TEST(FeatureList, OverlappingFeaturesStayWithinTheBudget) {
  constexpr unsigned kFeatures = 10'000;
  qxtest::BeBytes bytes;
  bytes.u16(kFeatures);
  for (unsigned i = 0; i < kFeatures; ++i) bytes.tag("test").u16(60'002 + 2 * (i % 2'000));
  for (int i = 0; i < 34'000; ++i) bytes.u16(32'000);
  const qxtest::TestFont font;
  const unsigned before = spentBudgets().graph;
  GraphReader reader(font, qxtest::viewOf(bytes.str()));
  TTI_FeatureList list;
  EXPECT_TRUE(readFeatureList(list, reader, 0));
  EXPECT_EQ(list.features.size(), kFeatures);
  EXPECT_EQ(list.features[0].lookups.size(), 32'000u);
  EXPECT_TRUE(list.features[1'999].lookups.empty());
  if (kCountsSpentBudgets) {
    EXPECT_EQ(spentBudgets().graph, before + 1);
  }
}

}  // namespace
}  // namespace QXFontService_NS::layout
