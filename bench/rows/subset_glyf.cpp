// A subset for a PDF with the font's glyph ids, `glyf` outlines: from memory and from the file,
// beside hb-subset told to do the same, and beside a hollow copy, the least that it takes.

#include <sstream>

#include "qxcommon/mem_stream.h"
#include "qxfontservice/ext/inspect.h"

#include "font/contract/base_font.h"
#include "harness/alternate.h"
#include "harness/bench.h"
#include "harness/glyph_draw.h"
#include "harness/opened_font.h"
#include "peers/free_type_font.h"
#include "peers/harfbuzz_subset.h"
#include "peers/hollow_copy.h"

namespace qxbench {
namespace {

using Glyphs = std::vector<unsigned short>;
using QXCommonNS::QXMemStream;

constexpr double kNano = 1e9;
constexpr std::size_t kBlock = 8192;

std::string textOf(QXMemStream& stream) {
  std::ostringstream text;
  text << stream.rdbuf();
  return text.str();
}

/// One font, and both sides over it.
class Sides {
 public:
  Sides(const FontSets& fonts, const std::string& file)
      : font(fonts, file),
        memory_(font.bytes(), std::ios::in | std::ios::binary),
        blob_(hb_blob_create(font.bytes().data(), static_cast<unsigned>(font.bytes().size()),
                             HB_MEMORY_MODE_READONLY, nullptr, nullptr)) {}

  bool oursFromMemory(const Glyphs& glyphs, QXMemStream& out) {
    return font.info().getFont()->getEmbedFont(glyphs, out, 0, &memory_);
  }
  void oursFromMemory(const Glyphs& glyphs) {
    QXMemStream out(nullptr, kBlock, false, true);
    keep(oursFromMemory(glyphs, out) ? 1U : 0U);
  }
  void oursFromFile(const Glyphs& glyphs) {
    QXMemStream out(nullptr, kBlock, false, true);
    keep(font.info().getEmbedFont(glyphs, out) ? 1U : 0U);
  }
  HarfBuzz<hb_blob_t> theirsFromMemory(const Glyphs& glyphs) {
    return subsetWithHarfBuzz(blob_.get(), glyphs);
  }
  void theirsFromFile(const Glyphs& glyphs) {
    const HarfBuzz<hb_blob_t> file(hb_blob_create_from_file(font.path().c_str()));
    keep(hb_blob_get_length(subsetWithHarfBuzz(file.get(), glyphs).get()));
  }

  OpenedFont font;

 private:
  std::istringstream memory_;
  HarfBuzz<hb_blob_t> blob_;
};

/// Why one of the subsets lacks an outline that it has to keep; empty when both are whole.
std::string difference(Sides& sides, const Glyphs& glyphs) {
  QXMemStream out(nullptr, kBlock, false, true);
  if (!sides.oursFromMemory(glyphs, out)) return "there is no subset";
  const std::string ours = textOf(out);
  const auto blob = sides.theirsFromMemory(glyphs);
  unsigned length = 0;
  const char* data = blob ? hb_blob_get_data(blob.get(), &length) : nullptr;
  const FreeTypeFont whole(sides.font.bytes());
  const FreeTypeFont subset(ours);
  const FreeTypeFont peer(std::string_view(data, length));
  for (const unsigned short glyph : glyphs) {
    const std::string outline = whole.outlineOf(glyph);
    if (subset.outlineOf(glyph) != outline) return "glyph " + std::to_string(glyph) + " is lost";
    if (peer.outlineOf(glyph) != outline) return "hb-subset lost glyph " + std::to_string(glyph);
  }
  return {};
}

void fromMemory(Bench& bench, Sides& sides, const std::string& name, const Glyphs& glyphs) {
  std::string hollow;
  const std::vector<double> times =
      alternate(bench.settings(), {{[&] { sides.oursFromMemory(glyphs); }, {}},
                                   {[&] { sides.theirsFromMemory(glyphs); }, {}},
                                   {[&] { hollowCopy(sides.font.bytes(), glyphs, hollow); }, {}}});
  bench.add(
      {name, "hb-subset", "ns a subset", Goal::atLeast, 2, 5, times[0] * kNano, times[1] * kNano});
  bench.add({name, "a hollow copy", "ns a subset", Goal::atMost, 3, 0, times[0] * kNano,
             times[2] * kNano});
}

void fromFile(Bench& bench, Sides& sides, const std::string& name, const Glyphs& glyphs) {
  std::string hollow;
  const auto floor = [&] {
    readKept(sides.font.path(), sides.font.bytes(), glyphs);
    hollowCopy(sides.font.bytes(), glyphs, hollow);
  };
  const std::vector<double> times =
      alternate(bench.settings(), {{[&] { sides.oursFromFile(glyphs); }, {}},
                                   {[&] { sides.theirsFromFile(glyphs); }, {}},
                                   {floor, {}}});
  bench.add({name, "hb-subset", "ns a subset", Goal::atLeast, 1.5, 3, times[0] * kNano,
             times[1] * kNano});
  bench.add({name, "reading and a hollow copy", "ns a subset", Goal::atMost, 2, 0, times[0] * kNano,
             times[2] * kNano});
}

using Compare = void (*)(Bench&, Sides&, const std::string&, const Glyphs&);

void each(Bench& bench, const std::string& what, Compare compare) {
  for (const char* file : {"DejaVuSans.ttf", "ipam.ttf"}) {
    Sides sides(bench.fonts(), file);
    if (!sides.font) {
      bench.leaveOut(what + ", " + file, "the font is not here");
      continue;
    }
    const unsigned count = QXFontService_NS::ext::glyphCount(sides.font.info());
    for (const std::size_t wanted : {100U, 3000U, 10000U}) {
      if (wanted >= count || (bench.brief() && wanted > 100)) continue;
      const Glyphs glyphs = drawGlyphs(count, wanted);
      const std::string name = what + ", glyf, " + std::to_string(wanted) + " ids of " + file;
      if (const std::string why = difference(sides, glyphs); !why.empty()) {
        bench.notComparable(name, why);
      } else {
        compare(bench, sides, name, glyphs);
      }
    }
  }
}

void runMemory(Bench& bench) {
  each(bench, "getEmbedFont", fromMemory);
}

void runFile(Bench& bench) {
  each(bench, "file to memory", fromFile);
}

void growth(Bench& bench) {
  Sides sides(bench.fonts(), bench.brief() ? "DejaVuSans.ttf" : "ipam.ttf");
  if (!sides.font) return;
  const unsigned count = QXFontService_NS::ext::glyphCount(sides.font.info());
  const auto timeOf = [&](std::size_t wanted) {
    const Glyphs glyphs = drawGlyphs(count, wanted);
    return alternate(bench.settings(), {{[&] { sides.oursFromMemory(glyphs); }, {}}}).front();
  };
  const double base = timeOf(100);
  for (const std::size_t wanted : {1000U, 10000U})
    bench.add(Growth{"a subset of " + std::to_string(wanted) + " ids beside 100, glyf",
                     timeOf(wanted) / base, 50});
}

/// The first subset of a handle, and the following ones.
void again(Bench& bench) {
  const std::string path = bench.fonts().file("DejaVuSans.ttf");
  if (path.empty()) return;
  std::unique_ptr<Sides> sides;
  const Glyphs glyphs = drawGlyphs(6000, 100);
  const auto renew = [&] {
    sides.reset();
    sides = std::make_unique<Sides>(bench.fonts(), "DejaVuSans.ttf");
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
