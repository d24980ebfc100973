#include "type1/maps/glyph_names.h"

#include <algorithm>
#include <unordered_map>

#include "type1/maps/glyph_names_data.h"
#include "type1/maps/standard_strings.h"

namespace QXFontService_NS::type1 {
namespace {

struct Tables {
  std::unordered_map<int, std::string_view> names;
  std::unordered_map<std::string_view, int> characters;
  std::unordered_map<std::string_view, int> standardCodes;

  Tables() {
    for (const GlyphNameRow& row : kGlyphNameRows) {
      names.emplace(row.unicode, row.name);
      characters.emplace(row.name, row.unicode);
    }
    for (int code = 0; code < 256; ++code) {
      const auto number = kStandardEncodingSids[static_cast<std::size_t>(code)];
      if (number != 0) standardCodes.emplace(kStandardStrings[number], code);
    }
  }
};

const Tables& tables() {
  static const Tables made;
  return made;
}

}  // namespace

std::string_view glyphNameOf(int unicode) {
  const auto found = tables().names.find(unicode);
  return found == tables().names.end() ? std::string_view() : found->second;
}

int unicodeOf(std::string_view glyphName) {
  const auto found = tables().characters.find(glyphName);
  return found == tables().characters.end() ? 0 : found->second;
}

int unicodeAlternative(int unicode) {
  const auto* const found =
      std::find_if(kUnicodeAlternatives.begin(), kUnicodeAlternatives.end(),
                   [&](const UnicodeAlternativeRow& row) { return row.from == unicode; });
  return found == kUnicodeAlternatives.end() ? unicode : found->to;
}

std::string_view standardEncodingName(unsigned char code) {
  return kStandardStrings[kStandardEncodingSids[code]];
}

int standardEncodingCode(std::string_view glyphName) {
  const auto found = tables().standardCodes.find(glyphName);
  return found == tables().standardCodes.end() ? 0 : found->second;
}

}  // namespace QXFontService_NS::type1
