// Text to glyph ids through the public handle, which takes UTF-16, beside FreeType's question a
// code and HarfBuzz's batch of codes.

#include <algorithm>
#include <deque>

#include "harness/alternate.h"
#include "harness/bench.h"
#include "harness/opened_font.h"
#include "harness/sample_text.h"
#include "peers/free_type_font.h"
#include "peers/harfbuzz_font.h"

namespace qxbench {
namespace {

constexpr double kNano = 1e9;

struct Musts {
  double freeTypeMust, freeTypeAim, harfBuzzMust, harfBuzzAim;
};

/// The three sides over one text.
class Sides {
 public:
  Sides(const OpenedFont& font, const SampleText& text)
      : font_(font),
        text_(text),
        freeType_(font.bytes()),
        harfBuzz_(font.bytes()),
        ours_(static_cast<std::size_t>(text.utf16.length())),
        theirs_(text.codes.size()) {}

  void askOurs() {
    int count = 0;
    int firstMissing = 0;
    font_.info().getGlyphIDs(text_.utf16, ours_.data(), count, false, &firstMissing);
  }
  void askFreeType() {
    for (std::size_t i = 0; i < theirs_.size(); ++i)
      theirs_[i] = FT_Get_Char_Index(freeType_.face(), text_.codes[i]);
  }
  void askHarfBuzz() {
    hb_font_get_nominal_glyphs(harfBuzz_.font.get(), static_cast<unsigned>(theirs_.size()),
                               text_.codes.data(), sizeof(std::uint32_t), theirs_.data(),
                               sizeof(hb_codepoint_t));
  }
  /// The text has no code that the font lacks, so that all sides answer the same ids.
  [[nodiscard]] bool areEqual() const {
    return std::equal(theirs_.begin(), theirs_.end(), ours_.begin(),
                      [](hb_codepoint_t a, unsigned short b) { return a == b; });
  }

 private:
  const OpenedFont& font_;
  const SampleText& text_;
  FreeTypeFont freeType_;
  HarfBuzzFont harfBuzz_;
  std::vector<unsigned short> ours_;
  std::vector<hb_codepoint_t> theirs_;
};

bool doEqualWork(Sides& sides) {
  sides.askOurs();
  sides.askFreeType();
  if (!sides.areEqual()) return false;
  sides.askHarfBuzz();
  return sides.areEqual();
}

void compare(Bench& bench, const std::string& file, const OpenedFont& font, const SampleText& text,
             const Musts& musts) {
  const std::string name = "text to glyph ids, " + file;
  Sides sides(font, text);
  if (!doEqualWork(sides)) {
    bench.notComparable(name, "other glyph ids");
    return;
  }
  const std::vector<double> times =
      alternate(bench.settings(), {{[&] { sides.askOurs(); }, {}},
                                   {[&] { sides.askFreeType(); }, {}},
                                   {[&] { sides.askHarfBuzz(); }, {}}});
  const double each = kNano / static_cast<double>(text.codes.size());
  bench.add({name, "FT_Get_Char_Index", "ns a code", Goal::atLeast, musts.freeTypeMust,
             musts.freeTypeAim, times[0] * each, times[1] * each});
  bench.add({name, "HarfBuzz, batch", "ns a code", Goal::atLeast, musts.harfBuzzMust,
             musts.harfBuzzAim, times[0] * each, times[2] * each});
}

std::size_t lengthFor(const Bench& bench) {
  return bench.brief() ? 2000 : 200000;
}

void latin(Bench& bench) {
  const SampleText text = sampleOf(latinText(lengthFor(bench)));
  for (const char* file : {"DejaVuSans.ttf", "NotoSans-Regular.ttf", "Lato-Regular.ttf"}) {
    const OpenedFont font(bench.fonts(), file);
    if (font) {
      compare(bench, file, font, text, {2, 0, 1.5, 0});
    } else {
      bench.leaveOut(std::string("text to glyph ids, ") + file, "the font is not here");
    }
  }
}

std::vector<std::uint32_t> ideographsOf(const OpenedFont& font) {
  std::vector<std::uint32_t> codes;
  for (std::uint32_t code = 0x4E00; code < 0xA000; ++code) {
    if (font.info().getGlyphID(static_cast<int>(code), false) != QXFontService_NS::FS_NO_GLYPH)
      codes.push_back(code);
  }
  return codes;
}

void cjk(Bench& bench) {
  for (const char* file : {"ipag.ttf", "ipam.ttf", "NotoSansCJKjp-Regular.otf"}) {
    const OpenedFont font(bench.fonts(), file);
    if (font) {
      compare(bench, file, font, zipfText(ideographsOf(font), lengthFor(bench)), {1.3, 0, 1.1, 0});
    } else {
      bench.leaveOut(std::string("text to glyph ids, ") + file, "the font is not here");
    }
  }
}

/// Texts of several lengths, which take turns: what else the machine does falls on all.
void growth(Bench& bench) {
  const OpenedFont font(bench.fonts(), "DejaVuSans.ttf");
  if (!font) return;
  std::vector<std::size_t> lengths{1000, 30000};
  if (!bench.brief()) lengths.push_back(1000000);
  std::deque<SampleText> texts;
  std::deque<Sides> sides;
  std::vector<Work> works;
  for (const std::size_t length : lengths) {
    Sides& side = sides.emplace_back(font, texts.emplace_back(sampleOf(latinText(length))));
    works.push_back({[&side] { side.askOurs(); }, {}});
  }
  const std::vector<double> times = alternate(bench.settings(), works);
  const auto ofACode = [&](std::size_t at) {
    return times[at] / static_cast<double>(texts[at].codes.size());
  };
  for (std::size_t i = 1; i < lengths.size(); ++i)
    bench.add(Growth{"text to ids a code, " + std::to_string(lengths[i]) + " codes beside 1000",
                     ofACode(i) / ofACode(0), 1.25});
}

const Row kLatinRow{"7", "text to glyph ids, Latin", latin};
const Row kCjkRow{"8", "text to glyph ids, CJK", cjk};
const Row kGrowthRow{"7", "text to glyph ids, growth", growth};

}  // namespace
}  // namespace qxbench
