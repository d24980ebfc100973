#include "sides/subset_sides.h"

#include <array>

#include "qxfontservice/ext/inspect.h"

#include "harness/alternate.h"
#include "harness/glyph_draw.h"
#include "peers/free_type_font.h"

namespace qxbench {
namespace {

using QXCommonNS::QXMemStream;

constexpr double kNano = 1e9;
constexpr std::size_t kBlock = 8192;

std::string textOf(QXMemStream& stream) {
  std::ostringstream text;
  text << stream.rdbuf();
  return text.str();
}

}  // namespace

SubsetSides::SubsetSides(const FontSets& fonts, const std::string& file, const SubsetForm& form)
    : font(fonts, file),
      form_(form),
      memory_(font.bytes(), std::ios::in | std::ios::binary),
      blob_(hb_blob_create(font.bytes().data(), static_cast<unsigned>(font.bytes().size()),
                           HB_MEMORY_MODE_READONLY, nullptr, nullptr)) {}

bool SubsetSides::oursFromMemory(const Glyphs& glyphs, QXMemStream& out) {
  return form_.fromMemory(*font.info().getFont(), glyphs, out, memory_);
}

void SubsetSides::oursFromMemory(const Glyphs& glyphs) {
  QXMemStream out(nullptr, kBlock, false, true);
  keep(oursFromMemory(glyphs, out) ? 1U : 0U);
}

void SubsetSides::oursFromFile(const Glyphs& glyphs) {
  QXMemStream out(nullptr, kBlock, false, true);
  keep(form_.fromFile(font.info(), glyphs, out) ? 1U : 0U);
}

HarfBuzz<hb_blob_t> SubsetSides::theirsFromMemory(const Glyphs& glyphs) {
  return subsetWithHarfBuzz(blob_.get(), glyphs);
}

void SubsetSides::theirsFromFile(const Glyphs& glyphs) {
  const HarfBuzz<hb_blob_t> file(hb_blob_create_from_file(font.path().c_str()));
  keep(hb_blob_get_length(subsetWithHarfBuzz(file.get(), glyphs).get()));
}

void SubsetSides::hollowFromMemory(const Glyphs& glyphs) {
  form_.hollowCopy(font.bytes(), glyphs, hollow_);
}

void SubsetSides::hollowFromFile(const Glyphs& glyphs) {
  form_.readKept(font.path(), font.bytes(), glyphs);
  hollowFromMemory(glyphs);
}

std::string SubsetSides::difference(const Glyphs& glyphs) {
  QXMemStream out(nullptr, kBlock, false, true);
  if (!oursFromMemory(glyphs, out)) return "there is no subset";
  const std::string ours = textOf(out);
  const auto blob = theirsFromMemory(glyphs);
  unsigned length = 0;
  const char* data = blob ? hb_blob_get_data(blob.get(), &length) : nullptr;
  const FreeTypeFont whole(font.bytes());
  const FreeTypeFont subset(ours);
  const FreeTypeFont peer(std::string_view(data, length));
  for (const unsigned short glyph : glyphs) {
    const std::string outline = whole.outlineOf(glyph);
    if (subset.outlineOf(glyph) != outline) return "glyph " + std::to_string(glyph) + " is lost";
    if (peer.outlineOf(glyph) != outline) return "hb-subset lost glyph " + std::to_string(glyph);
  }
  return {};
}

void compareFromMemory(Bench& bench, SubsetSides& sides, const std::string& name,
                       const Glyphs& glyphs, const SubsetMusts& musts) {
  const std::vector<double> times =
      alternate(bench.settings(), {{[&] { sides.oursFromMemory(glyphs); }, {}},
                                   {[&] { sides.theirsFromMemory(glyphs); }, {}},
                                   {[&] { sides.hollowFromMemory(glyphs); }, {}}});
  bench.add({name, "hb-subset", "ns a subset", Goal::atLeast, musts.harfBuzz, musts.harfBuzzAim,
             times[0] * kNano, times[1] * kNano});
  bench.add({name, "a hollow copy", "ns a subset", Goal::atMost, musts.hollowCopy, 0,
             times[0] * kNano, times[2] * kNano});
}

void compareFromFile(Bench& bench, SubsetSides& sides, const std::string& name,
                     const Glyphs& glyphs, const SubsetMusts& musts) {
  const std::vector<double> times =
      alternate(bench.settings(), {{[&] { sides.oursFromFile(glyphs); }, {}},
                                   {[&] { sides.theirsFromFile(glyphs); }, {}},
                                   {[&] { sides.hollowFromFile(glyphs); }, {}}});
  bench.add({name, "hb-subset", "ns a subset", Goal::atLeast, musts.harfBuzz, musts.harfBuzzAim,
             times[0] * kNano, times[1] * kNano});
  bench.add({name, "reading and a hollow copy", "ns a subset", Goal::atMost, musts.hollowCopy, 0,
             times[0] * kNano, times[2] * kNano});
}

void addSubsetGrowth(Bench& bench, SubsetSides& sides, const std::string& outlines, double limit) {
  const unsigned count = QXFontService_NS::ext::glyphCount(sides.font.info());
  constexpr std::array<std::size_t, 3> kWanted{100, 1000, 10000};
  std::vector<Work> works;
  for (const std::size_t wanted : kWanted) {
    const Glyphs glyphs = drawGlyphs(count, wanted);
    works.push_back({[&sides, glyphs] { sides.oursFromMemory(glyphs); }, {}});
  }
  const std::vector<double> times = alternate(bench.settings(), works);
  for (std::size_t i = 1; i < kWanted.size(); ++i)
    bench.add(Growth{"a subset of " + std::to_string(kWanted[i]) + " ids beside 100, " + outlines,
                     times[i] / times[0], limit});
}

}  // namespace qxbench
