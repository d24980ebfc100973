#include "type1/charstrings/charstring_entries.h"

#include "type1/charstrings/charstring_tokens.h"
#include "type1/charstrings/text_cursor.h"
#include "type1/maps/glyph_names.h"

namespace QXFontService_NS::type1 {
namespace {

constexpr std::string_view kSpaces = " ";
constexpr std::string_view kSpacesAndLineEnds = " \r\n";
constexpr int kNoCode = -1;
constexpr std::size_t kLongestString = 65535;  // of PostScript, and so of a charstring

/// A code of the standard encoding; whatever else a charstring holds names no glyph.
int codeOf(const QXValue& value) {
  const int code = value.getIntegerValue();
  return code >= 0 && code <= 255 ? code : kNoCode;
}

/// The codes of the parts behind a charstring that ends in an accent: bchar and achar stand before
/// `seac`.
bool readSeac(std::string_view charString, CharStringEntry& entry) {
  if (charString.size() > kLongestString) return false;
  std::vector<QXValue> tokens;
  const int seac = readCharStringTokens(std::string(charString), tokens, false);
  if (seac < 2) return false;
  entry.standardBase = codeOf(tokens[static_cast<std::size_t>(seac) - 2]);
  entry.standardAccent = codeOf(tokens[static_cast<std::size_t>(seac) - 1]);
  return true;
}

/// Reads "/A 123 RD ...bytes... ND" to the end of its line.
bool readEntry(TextCursor& cursor, CharStringEntry& entry, bool& hasSeac) {
  entry.start = cursor.position();
  cursor.skip(kSpacesAndLineEnds);
  if (!cursor.accept("/")) return false;
  entry.name = cursor.word();
  entry.used = entry.name == ".notdef";
  cursor.skip(kSpaces);
  const long long length = leadingNumber(cursor.word());
  cursor.skip(kSpaces);
  cursor.word();  // RD or -|, told by its place
  cursor.step();
  if (length < 0 || static_cast<std::size_t>(length) > cursor.left()) return false;
  hasSeac = readSeac(cursor.take(static_cast<std::size_t>(length)), entry);
  cursor.skipLine();
  entry.length = cursor.position() - entry.start;
  return true;
}

std::size_t entryNumber(const CharStringIndex& index, int standardCode) {
  if (standardCode == kNoCode) return 0;
  const auto found = index.find(standardEncodingName(static_cast<unsigned char>(standardCode)));
  return found == index.end() ? 0 : found->second;
}

}  // namespace

void readCharStringEntries(std::string_view plain, std::size_t& position, std::size_t count,
                           std::vector<CharStringEntry>& entries, CharStringIndex& index) {
  TextCursor cursor(plain, position);
  std::vector<std::size_t> accented;
  for (std::size_t i = 0; i < count && !cursor.atEnd(); ++i) {
    CharStringEntry entry;
    bool hasSeac = false;
    const std::size_t begin = cursor.position();
    if (!readEntry(cursor, entry, hasSeac)) {
      // What ends the dictionary goes out with all that follows it.
      cursor = TextCursor(plain, begin);
      break;
    }
    entries.push_back(entry);
    index.emplace(entry.name, entries.size());
    if (hasSeac) accented.push_back(entries.size() - 1);
  }
  position = cursor.position();
  for (const std::size_t i : accented) {
    entries[i].seacBase = entryNumber(index, entries[i].standardBase);
    entries[i].seacAccent = entryNumber(index, entries[i].standardAccent);
  }
}

}  // namespace QXFontService_NS::type1
