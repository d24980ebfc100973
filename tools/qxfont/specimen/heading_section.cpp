#include <fmt/format.h>

#include "qxfontservice/ext/inspect.h"

#include "qxfont/cli/file_type_name.h"
#include "qxfont/cli/text.h"
#include "qxfont/match/match_explanation.h"
#include "qxfont/specimen/section.h"

namespace qxfont {
namespace {

constexpr double kTitleSize = 40;
constexpr double kTitleBaseline = 34;
constexpr double kUnderTitle = 24;
constexpr std::size_t kMostLines = 3;

std::string nameOf(const fs::FS_FontInfo& font,
                   fs::UnicodeString (fs::FS_FontInfo::*ask)(fs::QXLang::LanguageID) const) {
  return utf8((font.*ask)(fs::QXLang::LANGID_DEFAULT));
}

std::string styleText(const fs::FS_FontInfo& font) {
  int weight = 0;
  bool italic = false;
  int stretch = 0;
  font.getFontStyle(&weight, &italic, &stretch);
  return fmt::format("weight {}, {}, width {}", weight, italic ? "italic" : "upright", stretch);
}

std::string sizeText(const fs::FS_FontInfo& font, const Characters& characters) {
  const std::size_t glyphs = fs::ext::glyphCount(font);
  const std::string text = fmt::format("{} characters, {} units to the em",
                                       grouped(characters.codes().size()), font.getUnitsPerEm());
  return glyphs == 0 ? text : fmt::format("{} glyphs, {}", grouped(glyphs), text);
}

std::string embeddingText(const fs::FS_FontInfo& font) {
  switch (font.getEmbedStatus()) {
    case fs::FS_EMBED_ALLOWED:
      return "allowed by its licence bits";
    case fs::FS_EMBED_RESTRICTED:
      return "restricted by its licence bits";
    default:
      return fmt::format("status {}", static_cast<int>(font.getEmbedStatus()));
  }
}

void putTitle(const Subject& subject, const std::string& family, Sheet& sheet) {
  SheetText title = sheet.note(family, kTitleBaseline);
  title.x = sheet.left();
  title.style.size = kTitleSize;
  title.style.width = sheet.width();
  title.style.face = subject.labelFace;
  title.shrinks = true;
  sheet.put(title);
  sheet.skip(kTitleBaseline + kUnderTitle);
}

void rowUnlessEmpty(Sheet& sheet, const std::string& label, const std::string& text) {
  if (!text.empty()) sheet.row(label, text, kMostLines);
}

}  // namespace

void headingSection(const Subject& subject, const Desk& desk) {
  const fs::FS_FontInfo& font = desk.fonts.font(subject.face);
  const std::string family = utf8(familyName(font));
  const std::string full = nameOf(font, &fs::FS_FontInfo::getFullFontName);
  Sheet& sheet = desk.sheet;
  sheet.beginFont(subject.labelFace, unicode(full.empty() ? family : full));
  putTitle(subject, family, sheet);
  rowUnlessEmpty(sheet, "full name", full);
  rowUnlessEmpty(sheet, "style name", nameOf(font, &fs::FS_FontInfo::getSubFamilyName));
  rowUnlessEmpty(sheet, "PostScript name", nameOf(font, &fs::FS_FontInfo::getPostScriptName));
  sheet.row("file", matchedFile(subject.match.face), kMostLines);
  sheet.row("kind", fileTypeName(font.getFontFileType2()));
  sheet.row("style", styleText(font));
  sheet.row("holds", sizeText(font, subject.characters));
  sheet.row("embedding", embeddingText(font));
}

}  // namespace qxfont
