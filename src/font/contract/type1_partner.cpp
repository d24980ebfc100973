#include "font/contract/type1_partner.h"

#include <unicode/uchar.h>

#include <array>

namespace QXFontService_NS {
namespace {

struct RoleRow {
  const char16_t* extension;
  Type1Role role;
};

constexpr std::array kRoles = {
    RoleRow{u".afm", Type1Role::metrics},
    RoleRow{u".pfm", Type1Role::metrics},
    RoleRow{u".pfb", Type1Role::program},
    RoleRow{u".pfa", Type1Role::program},
};

struct ProgramRow {
  const char16_t* lower;
  const char16_t* upper;
  FS_FontFileType type;
};

constexpr std::array kPrograms = {
    ProgramRow{u".pfb", u".PFB", FS_FILETYPE_TYPE1_PFB},
    ProgramRow{u".pfa", u".PFA", FS_FILETYPE_TYPE1_PFA},
};

}  // namespace

Type1Role type1RoleOf(const UnicodeString& extension) {
  UnicodeString lower(extension);
  lower.toLower(icu::Locale::getRoot());
  for (const RoleRow& row : kRoles) {
    if (lower == row.extension) return row.role;
  }
  return Type1Role::none;
}

Type1Partner type1PartnerOf(const QXUri& metrics) {
  const UnicodeString extension = metrics.getExtension();
  const bool upper = extension.length() > 1 && u_isupper(extension.char32At(1)) != 0;
  for (const ProgramRow& row : kPrograms) {
    QXUri program = metrics;
    program.setExtension(UnicodeString(upper ? row.upper : row.lower));
    if (program.isFileExists()) return {program, row.type};
  }
  return {};
}

}  // namespace QXFontService_NS
