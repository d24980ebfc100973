#include "common/xml/utf8_document.h"

#include <unicode/localpointer.h>
#include <unicode/ucnv.h>
#include <unicode/ucnv_err.h>

#include <array>

#include "qxcommon/text.h"

namespace QXCommonNS::xml {
namespace {

using std::string_view_literals::operator""sv;

constexpr std::string_view kUtf8 = "UTF-8";
constexpr std::string_view kBlanks = " \t\r\n";

struct Encoding {
  std::string name;
  std::size_t markLength = 0;
};

bool startsWith(std::string_view text, std::string_view prefix) {
  return text.substr(0, prefix.size()) == prefix;
}

std::string_view afterBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  return first == std::string_view::npos ? std::string_view() : text.substr(first);
}

// The value of a quoted text in front of `text`.
std::string_view quoted(std::string_view text) {
  if (text.empty() || (text[0] != '"' && text[0] != '\'')) return {};
  const std::size_t end = text.find(text[0], 1);
  return end == std::string_view::npos ? std::string_view() : text.substr(1, end - 1);
}

std::string_view declaredEncoding(std::string_view document) {
  if (!startsWith(document, "<?xml")) return {};
  const std::string_view declaration = document.substr(0, document.find("?>"));
  const std::size_t at = declaration.find("encoding");
  if (at == std::string_view::npos) return {};
  const std::string_view rest = afterBlanks(declaration.substr(at + "encoding"sv.size()));
  return startsWith(rest, "=") ? quoted(afterBlanks(rest.substr(1))) : std::string_view();
}

Encoding encodingOf(std::string_view document) {
  UErrorCode status = U_ZERO_ERROR;
  std::int32_t markLength = 0;
  const char* marked = ucnv_detectUnicodeSignature(
      document.data(), static_cast<std::int32_t>(document.size()), &markLength, &status);
  if (U_SUCCESS(status) && marked != nullptr) return {marked, static_cast<std::size_t>(markLength)};
  if (startsWith(document, "\0<\0?"sv)) return {"UTF-16BE"};
  if (startsWith(document, "<\0?\0"sv)) return {"UTF-16LE"};
  const std::string_view declared = declaredEncoding(document);
  return {std::string(declared.empty() ? kUtf8 : declared)};
}

bool isUtf8(const std::string& name) {
  return ucnv_compareNames(name.c_str(), "UTF-8") == 0;
}

icu::LocalUConverterPointer openStrictConverter(const std::string& name) {
  UErrorCode status = U_ZERO_ERROR;
  icu::LocalUConverterPointer converter(ucnv_open(name.c_str(), &status));
  if (U_FAILURE(status)) return icu::LocalUConverterPointer();
  ucnv_setToUCallBack(converter.getAlias(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr,
                      &status);
  return converter;
}

std::u16string converted(UConverter* converter, std::string_view document) {
  std::u16string text;
  std::array<char16_t, 4096> piece;
  const char* from = document.data();
  const char* end = from + document.size();
  UErrorCode status = U_BUFFER_OVERFLOW_ERROR;
  while (status == U_BUFFER_OVERFLOW_ERROR) {
    status = U_ZERO_ERROR;
    char16_t* to = piece.data();
    ucnv_toUnicode(converter, &to, to + piece.size(), &from, end, nullptr, true, &status);
    text.append(piece.data(), to);
  }
  return text;
}

std::string utf8Of(const std::u16string& text) {
  std::string result;
  UnicodeString(false, text.data(), static_cast<std::int32_t>(text.size())).toUTF8String(result);
  return result;
}

}  // namespace

std::string documentInUtf8(std::string_view document) {
  const Encoding encoding = encodingOf(document);
  document.remove_prefix(encoding.markLength);
  if (isUtf8(encoding.name)) return std::string(document);
  const icu::LocalUConverterPointer converter = openStrictConverter(encoding.name);
  if (converter.isNull()) return {};
  return utf8Of(converted(converter.getAlias(), document));
}

}  // namespace QXCommonNS::xml
