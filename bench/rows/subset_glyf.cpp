// A subset for a PDF with the font's glyph ids, `glyf` outlines: from memory and from the file,
// beside hb-subset told to do the same, and beside a hollow copy, the least that it takes.

#include <memory>

#include "qxfontservice/ext/inspect.h"

#include "harness/alternate.h"
#include "harness/glyph_draw.h"
#include "peers/hollow_copy.h"
#include "sides/subset_sides.h"

namespace qxbench {
namespace {

using QXCommonNS::QXMemStream;
using namespace QXFontService_NS;

bool fromMemory(FS_BaseFont& font, const Glyphs& glyphs, QXMemStream& out, std::istream& source) {
  return font.getEmbedFont(glyphs, out, 0, &source);
}

bool fromFile(const FS_FontInfo& font, const Glyphs& glyphs, QXMemStream& out) {
  return font.getEmbedFont(glyphs, out);
}

constexpr SubsetForm kForm{fromMemory, fromFile, hollowCopy, readKept};

using Compare = void (*)(Bench&, SubsetSides&, const std::string&, const Glyphs&,
                         const SubsetMusts&);

void each(Bench& bench, const std::string& what, Compare compare, const SubsetMusts& musts) {
  for (const char* file : {"DejaVuSans.ttf", "ipam.ttf"}) {
    SubsetSides sides(bench.fonts(), file, kForm);
    if (!sides.font) {
      bench.leaveOut(what + ", " + file, "the font is not here");
      continue;
    }
    const unsigned count = ext::glyphCount(sides.font.info());
    for (const std::size_t wanted : {100U, 3000U, 10000U}) {
      if (wanted >= count || (bench.brief() && wanted > 100)) continue;
      const Glyphs glyphs = drawGlyphs(count, wanted);
      const std::string name = what + ", glyf, " + std::to_string(wanted) + " ids of " + file;
      if (const std::string why = sides.difference(glyphs); !why.empty()) {
        bench.notComparable(name, why);
      } else {
        compare(bench, sides, name, glyphs, musts);
      }
    }
  }
}

void runMemory(Bench& bench) {
  each(bench, "getEmbedFont", compareFromMemory, {2, 5, 3});
}

void runFile(Bench& bench) {
  each(bench, "file to memory", compareFromFile, {1.5, 3, 2});
}

void growth(Bench& bench) {
  SubsetSides sides(bench.fonts(), bench.brief() ? "DejaVuSans.ttf" : "ipam.ttf", kForm);
  if (sides.font) addSubsetGrowth(bench, sides, "glyf", 50);
}

/// The first subset of a handle, and the following ones.
void again(Bench& bench) {
  const std::string path = bench.fonts().file("DejaVuSans.ttf");
  if (path.empty()) return;
  std::unique_ptr<SubsetSides> sides;
  const Glyphs glyphs = drawGlyphs(6000, 100);
  const auto renew = [&] {
    sides.reset();
    sides = std::make_unique<SubsetSides>(bench.fonts(), "DejaVuSans.ttf", kForm);
  };
  const auto embed = [&] { sides->oursFromFile(glyphs); };
  const auto renewAndEmbed = [&] {
    renew();
    embed();
  };
  const std::vector<double> times =
      alternate(bench.settings(), {{embed, renew}, {embed, renewAndEmbed}});
  bench.add(
      Growth{"embedding the same font again beside the first time", times[1] / times[0], 1.1});
}

const Row kMemoryRow{"15", "getEmbedFont, glyf", runMemory};
const Row kFileRow{"17", "file to memory, glyf", runFile};
const Row kGrowthRow{"15", "subset, growth", growth};
const Row kAgainRow{"15", "subset, again", again};

}  // namespace
}  // namespace qxbench
