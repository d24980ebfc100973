// A subset with the font's glyph ids, `CFF ` outlines and all other tables: from memory and from
// the file, beside hb-subset, and beside a hollow copy, the least that it takes. The peer writes
// fewer tables: with layout tables it would walk their substitutions, which is no part of this.

#include "qxfontservice/ext/inspect.h"

#include "harness/glyph_draw.h"
#include "peers/hollow_cff.h"
#include "sides/subset_sides.h"

namespace qxbench {
namespace {

using QXCommonNS::QXMemStream;
using namespace QXFontService_NS;

constexpr const char* kLarge = "NotoSansCJKjp-Regular.otf";
constexpr const char* kSmall = "EBGaramond12-Regular.otf";

bool fromMemory(FS_BaseFont& font, const Glyphs& glyphs, QXMemStream& out, std::istream& source) {
  return font.makeSubsetFont(glyphs, out, 0, &source);
}

bool fromFile(const FS_FontInfo& font, const Glyphs& glyphs, QXMemStream& out) {
  return font.makeSubsetFont(glyphs, out);
}

constexpr SubsetForm kForm{fromMemory, fromFile, hollowCffCopy, readKeptCff};

using Compare = void (*)(Bench&, SubsetSides&, const std::string&, const Glyphs&,
                         const SubsetMusts&);

void compareOne(Bench& bench, const std::string& what, const char* file, std::size_t wanted,
                Compare compare, const SubsetMusts& musts) {
  const std::string name = what + ", CFF, " + std::to_string(wanted) + " ids of " + file;
  SubsetSides sides(bench.fonts(), file, kForm);
  if (!sides.font) {
    bench.leaveOut(name, "the font is not here");
    return;
  }
  const Glyphs glyphs = drawGlyphs(ext::glyphCount(sides.font.info()), wanted);
  if (const std::string why = sides.difference(glyphs); !why.empty()) {
    bench.notComparable(name, why);
  } else {
    compare(bench, sides, name, glyphs, musts);
  }
}

void runMemory(Bench& bench) {
  compareOne(bench, "makeSubsetFont", kSmall, 100, compareFromMemory, {2, 4, 3});
  if (bench.brief()) return;
  compareOne(bench, "makeSubsetFont", kLarge, 100, compareFromMemory, {2, 4, 3});
  compareOne(bench, "makeSubsetFont", kLarge, 3000, compareFromMemory, {6, 12, 3});
}

void runFile(Bench& bench) {
  compareOne(bench, "file to memory", kSmall, 100, compareFromFile, {1.5, 3, 2});
  if (bench.brief()) return;
  for (const std::size_t wanted : {100U, 3000U})
    compareOne(bench, "file to memory", kLarge, wanted, compareFromFile, {1.5, 3, 2});
}

void growth(Bench& bench) {
  SubsetSides sides(bench.fonts(), bench.brief() ? kSmall : kLarge, kForm);
  if (sides.font) addSubsetGrowth(bench, sides, "CFF", 3);
}

const Row kMemoryRow{"16", "makeSubsetFont, CFF", runMemory};
const Row kFileRow{"17", "file to memory, CFF", runFile};
const Row kGrowthRow{"16", "subset, growth, CFF", growth};

}  // namespace
}  // namespace qxbench
