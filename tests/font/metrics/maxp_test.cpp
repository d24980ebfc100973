#include "font/metrics/maxp.h"

#include <gtest/gtest.h>

#include <sstream>

#include "support/table_builders.h"
#include "support/truncation.h"

namespace QXFontService_NS::metrics {
namespace {

constexpr std::uint32_t kStart = 5;
constexpr std::uint32_t kVersionHalf = 0x00005000;

TableResult read(const std::string& bytes, Maxp& out) {
  std::istringstream stream(std::string(kStart, '\x55') + bytes);
  return readMaxp(stream, TableRange{kStart, 6}, out);
}

TEST(Maxp, Version1HasAllFieldsInOrder) {
  const qxtest::MaxpBuilder table{700, 0x00010000, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13}};
  Maxp maxp;
  ASSERT_EQ(read(table.build(), maxp), std::nullopt);
  EXPECT_EQ(maxp.numGlyphs, 700);
  EXPECT_EQ(maxp.maxPoints, 1);
  EXPECT_EQ(maxp.maxContours, 2);
  EXPECT_EQ(maxp.maxCompositePoints, 3);
  EXPECT_EQ(maxp.maxCompositeContours, 4);
  EXPECT_EQ(maxp.maxZones, 5);
  EXPECT_EQ(maxp.maxTwilightPoints, 6);
  EXPECT_EQ(maxp.maxStorage, 7);
  EXPECT_EQ(maxp.maxFunctionDefs, 8);
  EXPECT_EQ(maxp.maxInstructionDefs, 9);
  EXPECT_EQ(maxp.maxStackElements, 10);
  EXPECT_EQ(maxp.maxSizeOfInstructions, 11);
  EXPECT_EQ(maxp.maxComponentElements, 12);
  EXPECT_EQ(maxp.maxComponentDepth, 13);
}

TEST(Maxp, OtherVersionsHaveTheGlyphCountAlone) {
  const std::string table = qxtest::MaxpBuilder{700, kVersionHalf, {}}.build();
  for (const std::size_t behind : {0u, 1u, 25u, 26u, 100u}) {
    Maxp maxp;
    ASSERT_EQ(read(table + std::string(behind, '\x11'), maxp), std::nullopt) << behind;
    EXPECT_EQ(maxp.numGlyphs, 700);
    EXPECT_EQ(maxp.maxPoints, 0);
    EXPECT_EQ(maxp.maxComponentDepth, 0);
  }
}

TEST(Maxp, AFontWithoutTheTableHasNoGlyphs) {
  std::istringstream stream;
  Maxp maxp{9};
  EXPECT_EQ(readMaxp(stream, std::nullopt, maxp), std::nullopt);
  EXPECT_EQ(maxp.numGlyphs, 0);
}

TEST(Maxp, ACutTableIsAReadError) {
  for (const std::uint32_t version : {0x00010000u, kVersionHalf}) {
    qxtest::forEachPrefix(
        qxtest::MaxpBuilder{700, version, {}}.build(), [](const std::string& cut) {
          Maxp maxp;
          EXPECT_EQ(read(cut, maxp), readFailure("'maxp' table read error")) << cut.size();
          EXPECT_EQ(maxp.numGlyphs, 0);
        });
  }
}

}  // namespace
}  // namespace QXFontService_NS::metrics
