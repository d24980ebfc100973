// The outlines of all glyphs of a font beside FreeType's own calls for them: a glyph loaded with
// its hinting and decomposed, the size set once.

#include "qxfontservice/ext/inspect.h"
#include "qxfontservice/glyph_draw_info.h"

#include "harness/alternate.h"
#include "harness/bench.h"
#include "harness/opened_font.h"
#include "peers/free_type_font.h"
#include "peers/free_type_outlines.h"

namespace qxbench {
namespace {

using QXFontService_NS::FS_GlyphContour;
using QXFontService_NS::FS_GlyphDrawInfo;

constexpr const char* kFonts[] = {"DejaVuSans.ttf",
                                  "DejaVuSerif.ttf",
                                  "Lato-Regular.ttf",
                                  "NotoSans-Regular.ttf",
                                  "Amiri-Regular.ttf",
                                  "EBGaramond12-Regular.otf",
                                  "ipag.ttf",
                                  "NotoSerif-Bold.ttf",
                                  "NotoNastaliqUrdu-Regular.ttf"};
constexpr unsigned kBriefGlyphs = 200;

/// The contours of a record one behind the other, as the peer has them.
bool areEqual(const FS_GlyphDrawInfo& info, const DecomposedOutline& outline) {
  std::vector<unsigned> kinds;
  std::vector<float> points;
  for (const FS_GlyphContour& contour : info.contours) {
    kinds.insert(kinds.end(), contour.segments.begin(), contour.segments.end());
    for (const auto& point : contour.points) {
      points.push_back(point.x);
      points.push_back(point.y);
    }
  }
  return kinds == outline.kinds && points == outline.points;
}

std::string difference(const OpenedFont& font, FT_Face face, unsigned count, int scale) {
  FS_GlyphDrawInfo info;
  DecomposedOutline outline{static_cast<float>(scale), {}, {}};
  for (unsigned glyph = 0; glyph < count; ++glyph) {
    const bool ours = font.info().getGlyphDrawInfo(static_cast<unsigned short>(glyph), info, false);
    const bool theirs = decompose(face, glyph, outline);
    if (ours != theirs || (ours && !areEqual(info, outline)))
      return "glyph " + std::to_string(glyph) + " differs";
  }
  return {};
}

void compareOne(Bench& bench, const std::string& name, const OpenedFont& font) {
  const FreeTypeFont freeType(font.bytes());
  unsigned count = QXFontService_NS::ext::glyphCount(font.info());
  if (bench.brief()) count = std::min(count, kBriefGlyphs);
  const int scale = setOutlineSize(freeType.face());
  if (const std::string why = difference(font, freeType.face(), count, scale); !why.empty()) {
    bench.notComparable(name, why);
    return;
  }
  FS_GlyphDrawInfo info;
  DecomposedOutline outline{static_cast<float>(scale), {}, {}};
  const auto ours = [&] {
    for (unsigned glyph = 0; glyph < count; ++glyph)
      font.info().getGlyphDrawInfo(static_cast<unsigned short>(glyph), info, false);
    keep(info.contours.size());
  };
  const auto theirs = [&] {
    for (unsigned glyph = 0; glyph < count; ++glyph) decompose(freeType.face(), glyph, outline);
    keep(outline.kinds.size());
  };
  const Times times = alternate(bench.settings(), {ours, {}}, {theirs, {}});
  bench.add({name, "FreeType's calls", "ns a glyph", Goal::atMost, 1.10, 1.03,
             times.ours * 1e9 / count, times.theirs * 1e9 / count});
}

void run(Bench& bench) {
  for (const char* file : kFonts) {
    const std::string name = std::string("outlines, ") + file;
    const OpenedFont font(bench.fonts(), file);
    if (font) {
      compareOne(bench, name, font);
    } else {
      bench.leaveOut(name, "the font is not here");
    }
  }
}

const Row kRow{"21", "outlines", run};

}  // namespace
}  // namespace qxbench
