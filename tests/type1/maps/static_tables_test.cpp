#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <map>
#include <string>
#include <string_view>

#include "type1/maps/glyph_names.h"
#include "type1/maps/glyph_names_data.h"
#include "type1/maps/standard_strings.h"

namespace QXFontService_NS::type1 {
namespace {

/// A digest of a text (FNV-1a, 64 bits): one changed row of a table changes it.
std::uint64_t digestOf(std::string_view text) {
  std::uint64_t digest = 0xCBF29CE484222325U;
  for (const char c : text) digest = (digest ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
  return digest;
}

TEST(StaticTables, GlyphNamesAreThoseOfThePublishedLists) {
  std::string text;
  for (const GlyphNameRow& row : kGlyphNameRows) {
    char number[8];
    std::snprintf(number, sizeof number, "%04X;", static_cast<unsigned>(row.unicode));
    text.append(number).append(row.name).append("\n");
  }
  EXPECT_EQ(digestOf(text), 0xF04EDC7720462B8BU);
}

TEST(StaticTables, StandardStringsAreThoseOfTheCompactFontFormat) {
  std::string text;
  for (const std::string_view name : kStandardStrings) text.append(name).append("\n");
  EXPECT_EQ(digestOf(text), 0xE94290463D11E613U);
}

TEST(StaticTables, EachCodeOfTheStandardEncodingHasItsName) {
  std::string text;
  for (int code = 0; code < 256; ++code)
    text.append(standardEncodingName(static_cast<unsigned char>(code))).append("\n");
  EXPECT_EQ(digestOf(text), 0xB5503D11863FF858U);
}

TEST(StaticTables, OfTwoRowsTheFirstCountsInBothDirections) {
  std::map<std::string_view, int> characters;
  std::map<int, std::string_view> names;
  for (const GlyphNameRow& row : kGlyphNameRows) {
    characters.emplace(row.name, row.unicode);
    names.emplace(row.unicode, row.name);
  }
  EXPECT_EQ(characters.size(), 1039u);
  EXPECT_EQ(names.size(), 1039u);
  for (const auto& [name, character] : characters) EXPECT_EQ(unicodeOf(name), character) << name;
  for (const auto& [character, name] : names) EXPECT_EQ(glyphNameOf(character), name) << name;
}

}  // namespace
}  // namespace QXFontService_NS::type1
