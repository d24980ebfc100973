// The kerning between neighbouring glyphs of a text, in font units, from the `kern` table.

#include "harness/alternate.h"
#include "harness/bench.h"
#include "harness/opened_font.h"
#include "harness/sample_text.h"
#include "peers/free_type_font.h"

namespace qxbench {
namespace {

using Glyphs = std::vector<unsigned short>;

FT_Pos kerningOf(const FreeTypeFont& font, unsigned short left, unsigned short right) {
  FT_Vector move{0, 0};
  FT_Get_Kerning(font.face(), left, right, FT_KERNING_UNSCALED, &move);
  return move.x;
}

/// Whether both sides kern alike, and at all.
bool doEqualWork(const OpenedFont& font, const FreeTypeFont& peer, const Glyphs& glyphs) {
  bool any = false;
  for (std::size_t i = 1; i < glyphs.size(); ++i) {
    const float ours = font.info().getPairKerningValue(glyphs[i - 1], glyphs[i], 0, false);
    if (ours != static_cast<float>(kerningOf(peer, glyphs[i - 1], glyphs[i]))) return false;
    any = any || ours != 0;
  }
  return any;
}

void run(Bench& bench) {
  const std::string name = "pair kerning, DejaVuSans.ttf";
  const OpenedFont font(bench.fonts(), "DejaVuSans.ttf");
  if (!font) {
    bench.leaveOut(name, "the font is not here");
    return;
  }
  const FreeTypeFont peer(font.bytes());
  const SampleText text = sampleOf(latinText(bench.brief() ? 2000 : 50000));
  Glyphs glyphs(static_cast<std::size_t>(text.utf16.length()));
  int count = 0;
  font.info().getGlyphIDs(text.utf16, glyphs.data(), count, false, nullptr);
  if (!doEqualWork(font, peer, glyphs)) {
    bench.notComparable(name, "other kerning");
    return;
  }
  const auto ours = [&] {
    float sum = 0;
    for (std::size_t i = 1; i < glyphs.size(); ++i)
      sum += font.info().getPairKerningValue(glyphs[i - 1], glyphs[i], 0, false);
    keep(static_cast<unsigned>(static_cast<int>(sum)));
  };
  const auto theirs = [&] {
    FT_Pos sum = 0;
    for (std::size_t i = 1; i < glyphs.size(); ++i)
      sum += kerningOf(peer, glyphs[i - 1], glyphs[i]);
    keep(static_cast<unsigned long long>(sum));
  };
  const Times times = alternate(bench.settings(), {ours, {}}, {theirs, {}});
  const double each = 1e9 / static_cast<double>(glyphs.size() - 1);
  bench.add({name, "FT_Get_Kerning", "ns a pair", Goal::atLeast, 1.3, 4, times.ours * each,
             times.theirs * each});
}

const Row kRow{"11", "pair kerning", run};

}  // namespace
}  // namespace qxbench
