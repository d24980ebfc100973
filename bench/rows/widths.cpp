// Advance widths in font units beside FreeType's fast way to them, and the width of a text beside
// its glyph ids, without which there is none.

#include "harness/alternate.h"
#include "harness/bench.h"
#include "harness/opened_font.h"
#include "harness/sample_text.h"
#include "peers/free_type_font.h"

#include FT_ADVANCES_H

namespace qxbench {
namespace {

constexpr double kNano = 1e9;

std::vector<unsigned short> glyphsOf(const OpenedFont& font, const SampleText& text) {
  std::vector<unsigned short> glyphs(static_cast<std::size_t>(text.utf16.length()));
  int count = 0;
  font.info().getGlyphIDs(text.utf16, glyphs.data(), count, false, nullptr);
  glyphs.resize(static_cast<std::size_t>(count));
  return glyphs;
}

FT_Fixed advanceOf(const FreeTypeFont& font, unsigned short glyph) {
  FT_Fixed advance = -1;
  FT_Get_Advance(font.face(), glyph, FT_LOAD_NO_SCALE, &advance);
  return advance;
}

void compareGlyphs(Bench& bench, const std::string& file, const OpenedFont& font,
                   const std::vector<unsigned short>& glyphs) {
  const std::string name = "glyph width, " + file;
  const FreeTypeFont peer(font.bytes());
  for (const unsigned short glyph : glyphs) {
    if (font.info().getGlyphWidth(glyph, 0, false) == static_cast<float>(advanceOf(peer, glyph)))
      continue;
    bench.notComparable(name, "other advances");
    return;
  }
  const auto ours = [&] {
    float sum = 0;
    for (const unsigned short glyph : glyphs) sum += font.info().getGlyphWidth(glyph, 0, false);
    keep(static_cast<unsigned>(sum));
  };
  const auto theirs = [&] {
    FT_Fixed sum = 0;
    for (const unsigned short glyph : glyphs) sum += advanceOf(peer, glyph);
    keep(static_cast<unsigned>(sum));
  };
  const Times times = alternate(bench.settings(), {ours, {}}, {theirs, {}});
  const double each = kNano / static_cast<double>(glyphs.size());
  bench.add({name, "FT_Get_Advance", "ns a glyph", Goal::atLeast, 2, 0, times.ours * each,
             times.theirs * each});
}

void compareText(Bench& bench, const std::string& file, const OpenedFont& font,
                 const SampleText& text) {
  constexpr double kAddition = 3;
  std::vector<unsigned short> glyphs(static_cast<std::size_t>(text.utf16.length()));
  int count = 0;
  const auto width = [&] {
    keep(static_cast<unsigned>(font.info().getTextWidth(text.utf16, -1000, false, nullptr)));
  };
  const auto ids = [&] {
    font.info().getGlyphIDs(text.utf16, glyphs.data(), count, false, nullptr);
  };
  const Times times = alternate(bench.settings(), {width, {}}, {ids, {}});
  const double each = kNano / static_cast<double>(text.codes.size());
  bench.add({"text width, " + file, "ids + 3 ns", "ns a code", Goal::atMost, 1, 0,
             times.ours * each, times.theirs * each + kAddition});
}

void run(Bench& bench) {
  const SampleText text = sampleOf(latinText(bench.brief() ? 2000 : 50000));
  for (const char* file : {"DejaVuSans.ttf", "Lato-Regular.ttf"}) {
    const OpenedFont font(bench.fonts(), file);
    if (!font) {
      bench.leaveOut(std::string("widths, ") + file, "the font is not here");
      continue;
    }
    compareGlyphs(bench, file, font, glyphsOf(font, text));
    compareText(bench, file, font, text);
  }
}

const Row kRow{"10", "widths", run};

}  // namespace
}  // namespace qxbench
