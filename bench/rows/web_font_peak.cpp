// What makeWebFont holds at most, beside the size of the subset that it packs. What it returns is
// part of it. Measured in a process of its own.

#include "qxcommon/mem_stream.h"
#include "qxfontservice/ext/inspect.h"

#include "harness/alternate.h"
#include "harness/bench.h"
#include "harness/glyph_draw.h"
#include "harness/opened_font.h"
#include "harness/own_process.h"
#include "harness/peak.h"

namespace qxbench {
namespace {

using QXCommonNS::QXMemStream;
using Glyphs = std::vector<unsigned short>;

constexpr std::size_t kBlock = 8192;

bool makeWebFont(const OpenedFont& font, const Glyphs& glyphs) {
  QXMemStream out(nullptr, kBlock, false, true);
  return font.info().makeWebFont(glyphs, out);
}

/// The peak of one font and number of glyphs; 0 where the kernel does not count it.
double peakOf(const FontSets& fonts, const std::string& wantedOfFile) {
  const std::size_t space = wantedOfFile.find(' ');
  const OpenedFont font(fonts, wantedOfFile.substr(space + 1));
  const Glyphs glyphs = drawGlyphs(QXFontService_NS::ext::glyphCount(font.info()),
                                   std::stoul(wantedOfFile.substr(0, space)));
  const auto make = [&] { keep(makeWebFont(font, glyphs) ? 1U : 0U); };
  make();  // what libraries keep for themselves is no part of it
  return peakBytes(make);
}

const OwnProcess kPeak{"peak of makeWebFont", peakOf};

/// The size of the subset that the web font packs; 0 where there is no such web font.
double sizeOfSubset(const OpenedFont& font, std::size_t wanted) {
  const Glyphs glyphs = drawGlyphs(QXFontService_NS::ext::glyphCount(font.info()), wanted);
  QXMemStream subset(nullptr, kBlock, false, true);
  if (!font.info().makeSubsetFont(glyphs, subset) || !makeWebFont(font, glyphs)) return 0;
  return static_cast<double>(subset.length());
}

void compareOne(Bench& bench, const std::string& file, std::size_t wanted) {
  const std::string name = "peak of makeWebFont, " + std::to_string(wanted) + " ids of " + file;
  const OpenedFont font(bench.fonts(), file);
  if (!font) {
    bench.leaveOut(name, "the font is not here");
    return;
  }
  const double size = sizeOfSubset(font, wanted);
  if (size == 0) {
    bench.notComparable(name, "there is no subset");
    return;
  }
  const double peak = kPeak.measure(bench, std::to_string(wanted) + " " + file);
  if (peak == 0) {
    bench.leaveOut(name, "the kernel does not count it");
  } else {
    bench.add({name, "the subset", "bytes", Goal::atMost, 2.5, 2.1, peak, size});
  }
}

void run(Bench& bench) {
  compareOne(bench, "DejaVuSans.ttf", 3000);
  if (bench.brief()) return;
  compareOne(bench, "ipam.ttf", 3000);
  compareOne(bench, "ipam.ttf", 10000);
  compareOne(bench, "NotoSansCJKjp-Regular.otf", 3000);
}

const Row kRow{"24", "peak of makeWebFont", run};

}  // namespace
}  // namespace qxbench
