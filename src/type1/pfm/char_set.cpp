#include "type1/pfm/char_set.h"

#include <unicode/ucnv.h>
#include <unicode/ucnv_err.h>

#include <array>

namespace QXFontService_NS::type1 {
namespace {

struct CharSetRow {
  std::uint8_t charSet;
  const char* converter;
};

constexpr std::array<CharSetRow, 9> kCharSets = {{{161, "cp1253"},
                                                  {162, "cp1254"},
                                                  {163, "cp1258"},
                                                  {177, "cp1255"},
                                                  {178, "cp1256"},
                                                  {186, "cp1257"},
                                                  {204, "cp1251"},
                                                  {222, "cp874"},
                                                  {238, "cp1250"}}};
constexpr const char* kWesternEurope = "cp1252";

UConverter* openConverter(std::uint8_t charSet) {
  UErrorCode status = U_ZERO_ERROR;
  UConverter* const converter = ucnv_open(converterOfCharSet(charSet), &status);
  if (U_FAILURE(status)) return nullptr;
  ucnv_setFromUCallBack(converter, UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
  return converter;
}

}  // namespace

const char* converterOfCharSet(std::uint8_t charSet) {
  for (const CharSetRow& row : kCharSets)
    if (row.charSet == charSet) return row.converter;
  return kWesternEurope;
}

UnicodeString decodeCharSet(std::uint8_t charSet, const std::string& bytes) {
  return {bytes.data(), static_cast<std::int32_t>(bytes.size()), converterOfCharSet(charSet)};
}

CharSetEncoder::CharSetEncoder(std::uint8_t charSet) : converter_(openConverter(charSet)) {}

CharSetEncoder::~CharSetEncoder() {
  if (converter_ != nullptr) ucnv_close(converter_);
}

std::optional<std::uint8_t> CharSetEncoder::encode(int character) {
  const UnicodeString text(static_cast<UChar32>(character));
  std::array<char, 8> bytes{};
  UErrorCode status = U_ZERO_ERROR;
  const std::int32_t count =
      ucnv_fromUChars(converter_, bytes.data(), static_cast<std::int32_t>(bytes.size()),
                      text.getBuffer(), text.length(), &status);
  if (U_FAILURE(status) || count != 1) return std::nullopt;
  return static_cast<std::uint8_t>(bytes[0]);
}

}  // namespace QXFontService_NS::type1
