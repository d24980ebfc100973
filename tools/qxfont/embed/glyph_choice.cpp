#include "qxfont/embed/glyph_choice.h"

#include <fmt/format.h>
#include <unicode/uchar.h>

#include <algorithm>
#include <charconv>
#include <optional>
#include <utility>

#include "qxfontservice/ext/inspect.h"

#include "qxfont/cli/status.h"
#include "qxfont/cli/text.h"

namespace qxfont {
namespace {

namespace fs = QXFontService_NS;

constexpr int kLastCodePoint = 0x10FFFF;

std::vector<std::string_view> split(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  for (std::size_t end = text.find(separator); end != std::string_view::npos;
       end = text.find(separator)) {
    parts.push_back(text.substr(0, end));
    text.remove_prefix(end + 1);
  }
  parts.push_back(text);
  return parts;
}

std::string_view trimmed(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

std::optional<int> numberOf(std::string_view text, int base, int highest) {
  int value = 0;
  const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), value, base);
  const bool whole = failure == std::errc() && end == text.data() + text.size();
  if (!whole || value < 0 || value > highest) return std::nullopt;
  return value;
}

bool hasPrefix(std::string_view text) {
  return text.size() > 2 && (text[0] == 'U' || text[0] == 'u') && text[1] == '+';
}

/// One item of a list: first and last number, the same for a single one.
std::optional<std::pair<int, int>> rangeOf(std::string_view item, int base, int highest) {
  const auto ends = split(item, '-');
  if (ends.size() > 2) return std::nullopt;
  const auto first = numberOf(ends.front(), base, highest);
  const auto last = numberOf(ends.back(), base, highest);
  if (!first || !last || *first > *last) return std::nullopt;
  return std::pair(*first, *last);
}

/// The same for code points; the last one of a range may do without "U+".
std::optional<std::pair<int, int>> codePointRange(std::string_view item) {
  if (!hasPrefix(item)) return std::nullopt;
  std::string digits(item.substr(2));
  const std::size_t second = digits.find('-');
  if (second != std::string::npos && hasPrefix(std::string_view(digits).substr(second + 1))) {
    digits.erase(second + 1, 2);
  }
  return rangeOf(digits, 16, kLastCodePoint);
}

void lookUp(const fs::FS_FontInfo& font, int codePoint, GlyphChoice& choice) {
  const unsigned short glyph =
      font.isType1Font() ? font.getType1CharCode(codePoint) : font.getGlyphID(codePoint, false);
  if (glyph != fs::FS_NO_GLYPH && glyph != 0) {
    choice.glyphs.emplace(glyph, codePoint);
  } else if (std::find(choice.missing.begin(), choice.missing.end(), codePoint) ==
             choice.missing.end()) {
    choice.missing.push_back(codePoint);
  }
}

/// Gives glyphs that were asked for by number their lowest code point.
void findCodePoints(const fs::FS_FontInfo& font, GlyphChoice& choice) {
  for (const auto& [code, glyph] : fs::ext::characterMap(font)) {
    const auto found = choice.glyphs.find(glyph);
    if (found != choice.glyphs.end() && found->second < 0) found->second = code;
  }
}

}  // namespace

std::vector<int> parseText(std::string_view text) {
  std::vector<int> codePoints;
  const icu::UnicodeString units = unicode(text);
  for (int i = 0; i < units.length(); i = units.moveIndex32(i, 1)) {
    if (u_iscntrl(units.char32At(i)) == 0) codePoints.push_back(units.char32At(i));
  }
  return codePoints;
}

std::vector<int> parseUnicodes(const std::string& text) {
  std::vector<int> codePoints;
  for (const std::string_view part : split(text, ',')) {
    const std::string_view item = trimmed(part);
    const auto range = codePointRange(item);
    if (!range) {
      throw ToolError(Status::wrongCall, fmt::format("'{}' is no code point", item),
                      "code points are written U+0041,U+4E00-4E0F");
    }
    for (int code = range->first; code <= range->second; ++code) codePoints.push_back(code);
  }
  return codePoints;
}

std::vector<unsigned short> parseGids(const std::string& text) {
  std::vector<unsigned short> gids;
  for (const std::string_view part : split(text, ',')) {
    const auto range = rangeOf(trimmed(part), 10, fs::FS_NO_GLYPH - 1);
    if (!range) {
      throw ToolError(Status::wrongCall, fmt::format("'{}' is no glyph id", trimmed(part)),
                      "glyph ids are written 3,5-9");
    }
    for (int gid = range->first; gid <= range->second; ++gid) {
      gids.push_back(static_cast<unsigned short>(gid));
    }
  }
  return gids;
}

std::vector<unsigned short> allGlyphs(const fs::FS_FontInfo& font) {
  std::vector<unsigned short> gids;
  const unsigned int count = fs::ext::glyphCount(font);
  for (unsigned int gid = 0; gid < count; ++gid) gids.push_back(static_cast<unsigned short>(gid));
  return gids;
}

GlyphChoice chooseGlyphs(const fs::FS_FontInfo& font, const GlyphRequest& request) {
  GlyphChoice choice;
  for (const int codePoint : request.codePoints) lookUp(font, codePoint, choice);
  if (font.isType1Font() && !request.gids.empty()) {
    throw ToolError(Status::wrongCall, "the glyphs of a Type 1 font are asked for by characters",
                    "give --text, --text-file or --unicodes");
  }
  const unsigned int count = fs::ext::glyphCount(font);
  bool unnamed = false;
  for (const unsigned short gid : request.gids) {
    if (gid >= count) {
      throw ToolError(Status::wrongCall,
                      fmt::format("there is no glyph {}: the face has {} glyphs", gid, count));
    }
    unnamed |= choice.glyphs.emplace(gid, -1).second;
  }
  if (unnamed) findCodePoints(font, choice);
  return choice;
}

}  // namespace qxfont
