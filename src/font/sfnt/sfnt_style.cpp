#include "font/sfnt/true_type_info.h"

// Answers about style and licence from the small tables.

namespace QXFontService_NS {
namespace {

constexpr std::uint32_t kItalicSelection = 0x01;  // fsSelection
constexpr std::uint8_t kSymbolicClass = 12;       // sFamilyClass
constexpr std::uint8_t kNoClass = 0;
constexpr std::uint8_t kLatinText = 2, kLatinHandWritten = 3;  // PANOSE family types
constexpr std::uint8_t kFirstSerif = 2, kLastSerif = 10;       // PANOSE serif styles

constexpr std::uint16_t kRestricted = 0x0002, kPreviewOrEditable = 0x000C;  // fsType
constexpr std::uint16_t kLicenceMask = 0x020E;

}  // namespace

int FS_TrueTypeInfo::getFontWeight() const {
  return static_cast<int>(records_.os2.usWeightClass);
}

bool FS_TrueTypeInfo::isItalicFont() const {
  return (records_.os2.fsSelection & kItalicSelection) != 0 || records_.post.italicAngle != 0;
}

int FS_TrueTypeInfo::getFontStretch() const {
  return static_cast<int>(records_.os2.usWidthClass);
}

FS_FontKey FS_TrueTypeInfo::styleKey() const {
  return makeFontKey(getFontWeight(), isItalicFont(), getFontStretch());
}

bool FS_TrueTypeInfo::isSymbolicFont() const {
  const std::uint8_t familyClass = records_.os2.sFamilyClass[0];
  return familyClass == kSymbolicClass || (familyClass == kNoClass && records_.isSymbolic);
}

bool FS_TrueTypeInfo::isSerifLikeFont() const {
  const auto& panose = records_.os2.panose;
  return panose[0] == kLatinText && panose[1] >= kFirstSerif && panose[1] <= kLastSerif;
}

bool FS_TrueTypeInfo::isScriptLikeFont() const {
  return records_.os2.panose[0] == kLatinHandWritten;
}

unsigned char FS_TrueTypeInfo::getFamilyClass() const {
  return records_.hasOS2 ? records_.os2.sFamilyClass[0] : std::uint8_t{0};
}

unsigned char FS_TrueTypeInfo::getFamilySubclass() const {
  return records_.hasOS2 ? records_.os2.sFamilyClass[1] : std::uint8_t{0};
}

PANOSE* FS_TrueTypeInfo::getPanose(PANOSE& out) const {
  if (!records_.hasOS2) return nullptr;
  const auto& panose = records_.os2.panose;
  out = PANOSE{panose[0], panose[1], panose[2], panose[3], panose[4],
               panose[5], panose[6], panose[7], panose[8], panose[9]};
  return &out;
}

FS_CodePageRange FS_TrueTypeInfo::getCodePageRangeBitFields() const {
  return {records_.os2.ulCodePageRange[0], records_.os2.ulCodePageRange[1]};
}

int FS_TrueTypeInfo::getUnitsPerEm() const {
  return static_cast<std::int16_t>(records_.head.unitsPerEm);
}

FS_EMBEDSTATUS FS_TrueTypeInfo::getEmbedStatus() const {
  const unsigned licence = records_.os2.fsType & kLicenceMask;
  if (licence == kRestricted) return FS_EMBED_RESTRICTED;
  if (licence != 0 && (licence & kPreviewOrEditable) == 0) return FS_EMBED_OTHER;
  return FS_EMBED_ALLOWED;
}

}  // namespace QXFontService_NS
