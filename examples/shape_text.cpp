// Sets a text by the substitutions and positions of OpenType layout, for scripts that take each
// character by itself, such as Latin, Greek and Cyrillic.
//
//   shape_text FAMILY SCRIPT TEXT     SCRIPT is an OpenType tag: latn, grek, cyrl

#include <algorithm>
#include <array>
#include <iostream>
#include <memory>
#include <vector>

#include "qxcommon/error.h"
#include "qxfontservice/font_service.h"

using namespace QXFontService_NS;

// [info]
using Layout = std::unique_ptr<FS_GSUBGPOSInfo, void (*)(FS_GSUBGPOSInfo*)>;

static Layout layoutOf(const FS_FontInfo& font, const UnicodeString& script) {
  constexpr unsigned int kDefaultLanguage = 0;
  FS_GSUBGPOSInfo* info = font.getGSUBGPOSInfo(toTAG(script), kDefaultLanguage);
  return {info, &FS_FontInfo::deleteGSUBGPOSInfo};
}
// [info end]

static bool isWanted(unsigned int tag) {
  static const std::array kOn = {toTAG("ccmp"), toTAG("locl"), toTAG("rlig"),
                                 toTAG("calt"), toTAG("clig"), toTAG("liga"),
                                 toTAG("kern"), toTAG("mark"), toTAG("mkmk")};
  return std::find(kOn.begin(), kOn.end(), tag) != kOn.end();
}

static GlyphIDArray2 glyphsOf(const FS_FontInfo& font, const UnicodeString& text) {
  // [characters]
  GlyphIDArray2 run;
  for (int i = 0; i < text.length(); i = text.moveIndex32(i, 1)) {
    unsigned short glyph = font.getGlyphID(text.char32At(i), false);
    if (glyph == FS_NO_GLYPH) glyph = 0;
    run.push_back(glyph, font.getGlyphClassDef(glyph));
  }
  // [characters end]
  return run;
}

// [substitute]
// The same glyphs without the words of the pass before, so that the next pass works on all of them.
static GlyphIDArray2 fresh(const GlyphIDArray2& glyphs) {
  GlyphIDArray2 run(glyphs.size());
  for (int i = 0; i < glyphs.size(); ++i) run[i] = glyphs[i];
  return run;
}

static GlyphIDArray2 substitute(const FS_GSUBGPOSInfo* info, GlyphIDArray2 run) {
  constexpr int kFirstAlternate = 1;
  for (int i = 0; FS_FontInfo::getGSUBFeatureTag(info, i) != 0; ++i) {
    if (!isWanted(FS_FontInfo::getGSUBFeatureTag(info, i))) continue;
    GlyphIDArray2 result;
    if (FS_FontInfo::processGSUB3(info, i, run, result, kFirstAlternate)) run = fresh(result);
  }
  return run;
}
// [substitute end]

// [position]
static std::vector<GlyphIDPosition> place(const FS_FontInfo& font, const FS_GSUBGPOSInfo* info,
                                          const GlyphIDArray2& run) {
  constexpr int kFontUnits = 0;
  constexpr int kPlacedAbsolutely = 0x8000;
  std::vector<GlyphIDPosition> glyphs;
  for (const GlyphIDClassPair& pair : run) {
    const float width = font.getGlyphWidth(pair.glyphID, kFontUnits, false);
    GlyphIDPosition glyph(1, 0);
    glyph.setGlyph2(pair, pair.glyphClass == GCD_MARK ? 0 : static_cast<int>(width));
    glyph.setFlag(kPlacedAbsolutely);
    glyphs.push_back(glyph);
  }
  for (int i = 0; FS_FontInfo::getGPOSFeatureTag(info, i) != 0; ++i)
    if (isWanted(FS_FontInfo::getGPOSFeatureTag(info, i)))
      FS_FontInfo::processGPOS3(info, i, glyphs, false);
  return glyphs;
}
// [position end]

static void tell(const std::vector<GlyphIDPosition>& glyphs) {
  // [draw]
  int x = 0;
  for (const GlyphIDPosition& glyph : glyphs) {
    std::cout << glyph.getGlyphID() << " at " << x + glyph.getMoveX1() << ',' << -glyph.getMoveY()
              << '\n';
    x += glyph.getMoveX();
  }
  // [draw end]
  std::cout << "in all " << x << '\n';
}

int main(int count, char** arguments) {
  if (count != 4) return 2;
  QXCommonNS::QXError error;
  if (FontServiceOpen(nullptr, &error) != FS_ERROR_NONE) return 5;
  FS_FontInfo font;
  if (!font.createFont(UnicodeString::fromUTF8(arguments[1]), 400, false)) return 1;
  const Layout layout = layoutOf(font, UnicodeString::fromUTF8(arguments[2]));
  GlyphIDArray2 run = glyphsOf(font, UnicodeString::fromUTF8(arguments[3]));
  if (FS_FontInfo::hasGSUBInfo(layout.get())) run = substitute(layout.get(), run);
  tell(place(font, layout.get(), run));
  return 0;
}
