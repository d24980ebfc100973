#include "type1/maps/glyph_list.h"

#include <cstddef>
#include <string_view>

#include "type1/text/leading_number.h"
#include "type1/text/line_reader.h"

namespace QXFontService_NS::type1 {
namespace {

constexpr std::size_t kLongestLine = 64 * 1024;
constexpr int kLastCharacter = 0x10FFFF;
constexpr std::string_view kWhiteSpace = " \t\n\v\f\r";

std::string_view withoutBlanksBehind(std::string_view text) {
  return text.substr(0, text.find_last_not_of(kWhiteSpace) + 1);
}

void takeLine(std::string_view line, std::map<int, std::string>& list) {
  if (line.empty() || line.size() > kLongestLine) return;
  if (line[0] == '#' || kWhiteSpace.find(line[0]) != std::string_view::npos) return;
  std::string_view rest;
  const int character = leadingInteger(line, 16, rest);
  if (rest.substr(0, 1) != ";" || character < 0 || character > kLastCharacter) return;
  rest.remove_prefix(1);
  const std::string_view name = rest.substr(0, rest.find(';'));
  list.emplace(character, withoutBlanksBehind(name));
}

}  // namespace

bool readGlyphListFile(std::istream& stream, std::map<int, std::string>& list) {
  LineReader lines(stream);
  for (std::string line; lines.next(line);) takeLine(line, list);
  return !stream.bad();
}

}  // namespace QXFontService_NS::type1
