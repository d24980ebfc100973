#include "qxfont/specimen/text_face.h"

#include <array>
#include <set>
#include <string>
#include <vector>

#include "qxfont/cli/status.h"
#include "qxfont/cli/text.h"
#include "qxfont/embed/form.h"
#include "qxfont/embed/rights.h"

namespace qxfont {
namespace {

constexpr std::array kReadable = {"DejaVu Sans", "Noto Sans", "Liberation Sans", "Lato",
                                  "Arial",       "Helvetica", "Nimbus Sans"};
constexpr std::size_t kMostTried = 64;

using Names = std::set<icu::UnicodeString>;

int collectFamily(fs::FS_FontResourceType, const fs::FS_EnumLogFontEx* font,
                  const fs::FS_NewTextMetricEx*, void* names) {
  static_cast<Names*>(names)->insert(font->getFaceName());
  return 0;
}

/// Families by the order in which they are tried.
std::vector<std::string> candidates(Service& service) {
  std::vector<std::string> families(kReadable.begin(), kReadable.end());
  Names names;
  fs::FS_EnumFontFamilies(icu::UnicodeString(), collectFamily, &names, &service.documentManager(),
                          0);
  for (const icu::UnicodeString& name : names) {
    if (families.size() == kMostTried) break;
    if (!name.isEmpty()) families.push_back(utf8(name));
  }
  return families;
}

bool goesInto(const fs::FS_FontInfo& font, DocumentKind kind) {
  return kind != DocumentKind::html || hasForm(font, formOf("woff"), false);
}

bool serves(const fs::FS_FontInfo& font, DocumentKind kind) {
  try {
    requireRights(font, true);
  } catch (const ToolError&) {
    return false;
  }
  return goesInto(font, kind) && canSetLabels(font, charactersOf(font));
}

}  // namespace

std::optional<std::size_t> findTextFace(Service& service, FontSet& fonts, DocumentKind kind) {
  for (const std::string& family : candidates(service)) {
    FontOptions options;
    options.font = family;
    try {
      const std::size_t face = fonts.faceOf(options);
      if (serves(fonts.font(face), kind)) return face;
    } catch (const ToolError&) {
      continue;  // it is not installed, or cannot be set
    }
  }
  return std::nullopt;
}

bool canSetLabels(const fs::FS_FontInfo& font, const Characters& characters) {
  return !font.isSymbolicFont() && characters.hasAll(labelLetters());
}

}  // namespace qxfont
