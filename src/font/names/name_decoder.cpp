#include "font/names/name_decoder.h"

#include <unicode/unistr.h>

#include <algorithm>
#include <array>

namespace QXFontService_NS::names {
namespace {

struct CodePage {
  unsigned encodingID;
  const char* converter;
};
constexpr std::array<CodePage, 5> kMacintoshCodePages{
    {{0, "cp1252"}, {1, "cp932"}, {2, "cp950"}, {3, "cp949"}, {25, "cp936"}}};
/// For strings whose 16-bit units each hold one byte.
constexpr std::array<CodePage, 4> kWindowsCodePages{
    {{2, "ShiftJIS"}, {3, "GB2312"}, {4, "Big5"}, {5, "cp949"}}};

template <std::size_t Count>
const char* converterOf(const std::array<CodePage, Count>& pages, unsigned encodingID) {
  for (const CodePage& page : pages)
    if (page.encodingID == encodingID) return page.converter;
  return nullptr;
}

bool isPlainAscii(const std::string& text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return c >= 0x20 && c < 0x7F; });
}

std::u16string convert(const std::string& text, const char* converter) {
  const icu::UnicodeString converted(text.data(), static_cast<int32_t>(text.size()), converter);
  return {converted.getBuffer(), static_cast<std::size_t>(converted.length())};
}

std::string bytesOf(ByteView text) {
  std::string narrow(text.size(), '\0');
  for (std::size_t i = 0; i < narrow.size(); ++i) narrow[i] = static_cast<char>(text.u8(i));
  return narrow;
}

bool highBytesAreZero(ByteView text) {
  for (std::size_t at = 0; at < text.size(); at += 2)
    if (text.u8(at) != 0) return false;
  return !text.empty();
}

std::string lowBytesOf(ByteView text) {
  std::string narrow(text.size() / 2, '\0');
  for (std::size_t i = 0; i < narrow.size(); ++i) narrow[i] = static_cast<char>(text.u8(2 * i + 1));
  return narrow;
}

bool isControl(char16_t unit) {
  return unit < 0x20 || (unit >= 0x7F && unit <= 0x9F);
}

/// To the end, without a way out: nearly no name has one, and so the compiler takes many at once.
bool hasControl(const std::u16string& text) {
  unsigned found = 0;
  for (const char16_t unit : text) found |= isControl(unit) ? 1U : 0U;
  return found != 0;
}

/// Units up to the first zero unit.
std::optional<std::u16string> decodeUtf16(ByteView text) {
  std::u16string name(text.size() / 2, u'\0');
  text.words(name);
  if (!hasControl(name)) return name;  // and so no zero
  name.resize(std::min(name.find(u'\0'), name.size()));
  if (hasControl(name)) return std::nullopt;
  return name;
}

}  // namespace

bool isMacintoshEncoding(unsigned encodingID) {
  return converterOf(kMacintoshCodePages, encodingID) != nullptr;
}

std::u16string decodeMacintosh(unsigned encodingID, ByteView text) {
  const char* converter = converterOf(kMacintoshCodePages, encodingID);
  if (converter == nullptr) return {};
  const std::string narrow = bytesOf(text);
  // Opening a converter costs more than all else that is done for a name.
  if (encodingID == 0 && isPlainAscii(narrow)) return {narrow.begin(), narrow.end()};
  return convert(narrow, converter);
}

std::optional<std::u16string> decodeWindows(unsigned encodingID, ByteView text) {
  const ByteView units = text.slice(0, text.size() / 2 * 2);
  const char* converter = converterOf(kWindowsCodePages, encodingID);
  if (converter != nullptr && highBytesAreZero(units)) return convert(lowBytesOf(units), converter);
  return decodeUtf16(units);
}

}  // namespace QXFontService_NS::names
