#include "type1/charstrings/rewrite_char_strings.h"

#include <algorithm>
#include <bitset>

#include "type1/charstrings/text_cursor.h"

namespace QXFontService_NS::type1 {
namespace {

constexpr std::string_view kCharStrings = "/CharStrings";
constexpr std::string_view kOpening = "dict dup begin";

/// Where a CharStrings dictionary stands in the text.
struct Dictionary {
  std::size_t countPosition = 0;
  std::size_t count = 0;
  std::size_t entries = 0;
};

std::optional<Dictionary> findDictionary(std::string_view plain) {
  const std::size_t found = plain.find(kCharStrings);
  if (found == std::string_view::npos) return std::nullopt;
  TextCursor cursor(plain, found + kCharStrings.size());
  cursor.skip(" ");
  Dictionary dictionary;
  dictionary.countPosition = cursor.position();
  const std::string_view count = cursor.word();
  const bool isNumber = count.find_first_not_of("0123456789") == std::string_view::npos;
  const long long number = leadingNumber(count);
  if (cursor.atEnd() || !isNumber || number <= 0) return std::nullopt;
  dictionary.count = static_cast<std::size_t>(number);
  cursor.skip(" ");
  if (!cursor.accept(kOpening)) return std::nullopt;
  cursor.skip(" \r\n");
  dictionary.entries = cursor.position();
  return dictionary;
}

void markParts(CharStringEntry& entry, std::vector<CharStringEntry>& entries) {
  entry.used = true;
  for (const std::size_t part : {entry.seacBase, entry.seacAccent})
    if (part != 0) entries[part - 1].used = true;
}

}  // namespace

int markUsedGlyphs(const WantedCodes& wanted, std::vector<CharStringEntry>& entries,
                   const CharStringIndex& index) {
  std::bitset<256> seen;  // a document may list its codes as often as it uses them
  for (const unsigned char code : wanted.codes) {
    if (seen.test(code)) continue;
    seen.set(code);
    const std::string name = wanted.names->nameOf(code);
    const auto found = name.empty() ? index.end() : index.find(name);
    if (found == index.end()) continue;
    CharStringEntry& entry = entries[found->second - 1];
    if (!entry.used) markParts(entry, entries);
  }
  return static_cast<int>(std::count_if(entries.begin(), entries.end(),
                                        [](const CharStringEntry& entry) { return entry.used; }));
}

bool rewriteCharStrings(std::string_view plain, std::string& output,
                        const std::optional<WantedCodes>& wanted) {
  const std::optional<Dictionary> dictionary = findDictionary(plain);
  if (!dictionary) return false;
  std::vector<CharStringEntry> entries;
  CharStringIndex index;
  std::size_t end = dictionary->entries;
  readCharStringEntries(plain, end, dictionary->count, entries, index);
  const int count =
      wanted ? markUsedGlyphs(*wanted, entries, index) : static_cast<int>(entries.size());
  output.append(plain.substr(0, dictionary->countPosition));
  output.append(std::to_string(count)).append(" ").append(kOpening).append("\n");
  for (const CharStringEntry& entry : entries)
    if (!wanted || entry.used) output.append(plain.substr(entry.start, entry.length));
  output.append(plain.substr(end));
  return true;
}

}  // namespace QXFontService_NS::type1
