#include "type1/program/header_keys.h"

#include <algorithm>
#include <cstddef>

#include "font/contract/font_name_rules.h"
#include "type1/text/leading_number.h"
#include "type1/text/line_reader.h"
#include "type1/text/post_script_string.h"

namespace QXFontService_NS::type1 {
namespace {

constexpr std::string_view kStandardEncoding = "StandardEncoding";

using Handler = bool (*)(ProgramForm form, std::string_view value, ProgramHeader& header);

struct Key {
  std::string_view name;
  Handler handler;
};

template <std::string ProgramHeader::*field>
bool text(ProgramForm, std::string_view value, ProgramHeader& header) {
  header.*field = postScriptValue(value);
  return true;
}

template <float ProgramHeader::*field>
bool number(ProgramForm, std::string_view value, ProgramHeader& header) {
  header.*field = leadingReal(value);
  return true;
}

bool fontName(ProgramForm, std::string_view value, ProgramHeader& header) {
  header.fontName = postScriptValue(value);
  if (header.fontName.substr(0, 1) == "/") header.fontName.erase(0, 1);
  return true;
}

bool weight(ProgramForm, std::string_view value, ProgramHeader& header) {
  header.weightName = postScriptValue(value);
  header.weight = weightFromName(UnicodeString::fromUTF8(header.weightName));
  return true;
}

bool isFixedPitch(ProgramForm form, std::string_view value, ProgramHeader& header) {
  std::string_view rest;
  header.isFixedPitch = (form == ProgramForm::segments ? firstToken(value, rest) : value) == "true";
  return true;
}

/// An encoding that is made in place, "256 array", has no name.
std::string encodingName(ProgramForm form, std::string_view value) {
  if (form == ProgramForm::text) return std::string(value);
  std::string_view rest;
  const std::string_view name = firstToken(value, rest);
  return firstToken(rest, rest) == "def" ? std::string(name) : std::string();
}

bool encoding(ProgramForm form, std::string_view value, ProgramHeader& header) {
  header.encodingName = encodingName(form, value);
  header.standardEncoding = header.encodingName.empty() || header.encodingName == kStandardEncoding;
  header.customEncoding = !header.standardEncoding;
  return true;
}

bool fontBBox(ProgramForm, std::string_view value, ProgramHeader& header) {
  const std::size_t open = value.find_first_of("{[");
  if (open == std::string_view::npos) return false;
  value = value.substr(open + 1);
  value = value.substr(0, value.find_first_of("}]"));
  std::size_t count = 0;
  for (auto token = firstToken(value, value); !token.empty() && count < header.fontBBox.size();
       token = firstToken(value, value))
    header.fontBBox[count++] = leadingReal(token);
  return count == header.fontBBox.size();
}

constexpr Key kKeys[] = {
    {"FontName", &fontName},
    {"FullName", &text<&ProgramHeader::fullName>},
    {"FamilyName", &text<&ProgramHeader::familyName>},
    {"Weight", &weight},
    {"ItalicAngle", &number<&ProgramHeader::italicAngle>},
    {"IsFixedPitch", &isFixedPitch},
    {"UnderlinePosition", &number<&ProgramHeader::underlinePosition>},
    {"UnderlineThickness", &number<&ProgramHeader::underlineThickness>},
    {"Encoding", &encoding},
    {"FontBBox", &fontBBox},
};

const Key* findKey(std::string_view name) {
  const auto* const found = std::find_if(std::begin(kKeys), std::end(kKeys),
                                         [&](const Key& key) { return key.name == name; });
  return found == std::end(kKeys) ? nullptr : found;
}

}  // namespace

bool isHeaderKey(std::string_view key) {
  return findKey(key) != nullptr;
}

bool takeHeaderValue(ProgramForm form, std::string_view key, std::string_view value,
                     ProgramHeader& header) {
  const Key* const found = findKey(key);
  return found == nullptr || found->handler(form, trimmed(value), header);
}

}  // namespace QXFontService_NS::type1
