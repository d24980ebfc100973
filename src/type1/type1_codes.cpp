#include "qxcommon/lock.h"

#include "type1/maps/glyph_names.h"
#include "type1/type1.h"

// How a Type 1 font by its metric file gives out codes for characters.

namespace QXFontService_NS {
namespace {

constexpr int kCodesOfFirstPage = 254;
constexpr int kLastNumber = 256 * 254;

unsigned char lowByte(int code) {
  return static_cast<unsigned char>(code & 0xFF);
}

}  // namespace

unsigned short FS_Type1::getType1CharCode(int code, int) {
  ensureLoaded();
  const int character = folded(code);
  // Held to the end: two threads would give one character two codes.
  QXMutex guard(&lock_);
  const auto known = codesByCharacter_.find(character);
  if (known != codesByCharacter_.end()) return known->second;
  return directCodes_ ? directCode(character) : findCode(character);
}

/// Characters are codes. Without a font program nothing is known of them, and nothing is kept.
unsigned short FS_Type1::directCode(int character) {
  if (character < 32 || character > 255) return 0;
  if (!printer_) return lowByte(character);
  const std::string name = printer_->encodedName(character);
  if (name.empty()) return 0;
  registerPageEntry(0, lowByte(character), name);
  return remember(character, lowByte(character));
}

unsigned short FS_Type1::findCode(int character) {
  if (const std::string* const listed = listedName(character)) {
    const std::optional<unsigned short> code = codeOfListedName(character, *listed);
    return code ? *code : codeOfProgram(character);
  }
  const int unicode = isSymbolicFont(0) ? character : type1::unicodeAlternative(character);
  const std::string name(type1::glyphNameOf(unicode));
  if (name.empty()) return codeOfProgram(character);
  const std::optional<unsigned short> code = codeOfKnownName(character, unicode, name);
  return code ? *code : codeOfProgram(character);
}

/// Nothing where the metrics lack the glyph that the list names.
std::optional<unsigned short> FS_Type1::codeOfListedName(int character, const std::string& name) {
  const std::optional<int> code = metricCode(name);
  if (!code) return std::nullopt;
  if (*code == -1) return newCode(character, name);
  if (getEncodingScheme(0) == FS_ENCODING_FONTSPECIFIC) registerPageEntry(0, lowByte(*code), name);
  return remember(character, lowByte(*code));
}

/// A glyph that stands at its character keeps that code where a standard reader finds it there; one
/// that stands elsewhere gets a new code, since its own belongs to another character.
std::optional<unsigned short> FS_Type1::codeOfKnownName(int character, int unicode,
                                                        const std::string& name) {
  const std::optional<int> code = metricCode(name);
  if (!code) return std::nullopt;
  if (*code != unicode) return newCode(character, name);
  if (isSymbolicFont(0)) {
    if (character >= 256) return newCode(character, name);
    registerPageEntry(0, lowByte(character), name);
    return remember(character, lowByte(character));
  }
  const bool isStandard = *code < 256 && *code >= 0 &&
                          (hasGlyphList_ || type1::standardEncodingName(lowByte(*code)) == name);
  if (isStandard) return remember(character, static_cast<unsigned short>(*code));
  const int standard = type1::standardEncodingCode(name);
  if (standard == 0) return newCode(character, name);
  if (getEncodingScheme(0) != FS_ENCODING_OTHER) registerPageEntry(0, lowByte(standard), name);
  return remember(character, static_cast<unsigned short>(standard));
}

unsigned short FS_Type1::newCode(int character, const std::string& name) {
  advanceCode();
  while (nextCode_ < kLastNumber && hasOwnCode(nextCode_)) advanceCode();
  return assignNewCode(character, name);
}

/// What the metrics lack the program may have under a code of its own.
unsigned short FS_Type1::codeOfProgram(int character) {
  const std::string name = printer_ ? printer_->encodedName(character) : std::string();
  if (!name.empty()) {
    if (character >= kCodesOfFirstPage) {
      advanceCode(kCodesOfFirstPage);
      return assignNewCode(character, name);
    }
    if (getEncodingScheme(0) == FS_ENCODING_FONTSPECIFIC)
      registerPageEntry(0, lowByte(character), name);
    return remember(character, lowByte(character));
  }
  const bool isOwn =
      isSymbolicFont(0) && character >= 32 && character <= 255 && hasOwnCode(character);
  return isOwn ? static_cast<unsigned short>(character) : static_cast<unsigned short>(0);
}

}  // namespace QXFontService_NS
