#include "qxfontservice/font_info.h"

#include "font/contract/base_font.h"
#include "font/contract/font_services.h"
#include "pool/registry/font_registry.h"
#include "service/boundary.h"

namespace QXFontService_NS {

using service::atBoundary;

namespace {

constexpr int kEudcEnd = 0x10000;

/// The EUDC font that serves a character, and its glyph there.
struct EudcChoice {
  FS_FontRef ref;
  unsigned short gid = FS_NO_GLYPH;
};

EudcChoice ask(const FS_FontRef& ref, int codePoint) {
  if (ref.font == nullptr) return {};
  return {ref, ref.font->getEudcGlyphID(codePoint, ref.entry)};
}

/// The font linked to the face, if it has the character, else the default of the face's direction;
/// a vertical face does not fall back on the horizontal default.
EudcChoice chooseEudc(const FS_BaseFont* font, int entry, int codePoint) {
  if (font == nullptr || !FS_FontInfo::isEUDC(codePoint)) return {};
  const EudcChoice linked = ask(font->getEudcFont(entry), codePoint);
  if (linked.gid != FS_NO_GLYPH) return linked;
  return ask(fontServices().eudcDefault(font->hasVerticalGlyph(entry)), codePoint);
}

}  // namespace

bool FS_FontInfo::isEUDC(int codePoint) {
  if (codePoint < 0 || codePoint >= kEudcEnd) return false;
  return atBoundary(false, [&] {
    FS_FontRegistry::open(nullptr, nullptr);
    return fontServices().isEudc(codePoint);
  });
}

unsigned short FS_FontInfo::getEudcGlyphID(int codePoint) const {
  return atBoundary(FS_NO_GLYPH, [&] { return chooseEudc(font_, entry_, codePoint).gid; });
}

bool FS_FontInfo::getEudcFontName(int codePoint, UnicodeString& name, int& weight,
                                  bool& italic) const {
  return atBoundary(false, [&] {
    const EudcChoice choice = chooseEudc(font_, entry_, codePoint);
    if (choice.gid == FS_NO_GLYPH) return false;
    const FS_BaseFont& font = *choice.ref.font;
    // The name was made unique when the font was entered, so it finds this very font.
    name = font.getPostScriptName(QXLang::LANGID_DEFAULT, choice.ref.entry);
    weight = font.getFontWeight(choice.ref.entry);
    italic = font.isItalicFont(choice.ref.entry);
    return true;
  });
}

}  // namespace QXFontService_NS
