// What makeWebFont holds at most, beside the size of the subset that it packs. What it returns is
// part of it.

#include "qxcommon/mem_stream.h"
#include "qxfontservice/ext/inspect.h"

#include "harness/alternate.h"
#include "harness/bench.h"
#include "harness/glyph_draw.h"
#include "harness/opened_font.h"
#include "harness/peak.h"

namespace qxbench {
namespace {

using QXCommonNS::QXMemStream;
using Glyphs = std::vector<unsigned short>;

constexpr std::size_t kBlock = 8192;

void compareOne(Bench& bench, const std::string& file, std::size_t wanted) {
  const std::string name = "peak of makeWebFont, " + std::to_string(wanted) + " ids of " + file;
  const OpenedFont font(bench.fonts(), file);
  if (!font) {
    bench.leaveOut(name, "the font is not here");
    return;
  }
  const Glyphs glyphs = drawGlyphs(QXFontService_NS::ext::glyphCount(font.info()), wanted);
  const auto make = [&] {
    QXMemStream out(nullptr, kBlock, false, true);
    keep(font.info().makeWebFont(glyphs, out) ? 1U : 0U);
  };
  QXMemStream subset(nullptr, kBlock, false, true);
  if (!font.info().makeSubsetFont(glyphs, subset)) {
    bench.notComparable(name, "there is no subset");
    return;
  }
  const double size = static_cast<double>(subset.length());
  subset.remove();
  make();  // what libraries keep for themselves is no part of it
  const double peak = peakBytes(make);
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
