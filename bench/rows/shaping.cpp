// Text set with OpenType layout, a word and a line at a time: from UTF-16 to glyphs and advances,
// through the public handle with one pass a lookup, beside hb_shape with the same features.

#include <algorithm>

#include "qxfontservice/service.h"

#include "harness/alternate.h"
#include "harness/bench.h"
#include "harness/layout_host.h"
#include "harness/opened_font.h"
#include "harness/sample_text.h"
#include "peers/harfbuzz_shaper.h"

namespace qxbench {
namespace {

using QXFontService_NS::toTAG;
using Texts = std::vector<icu::UnicodeString>;

struct Case {
  const char* number;
  const char* file;
  const char* kind;
  hb_script_t script;
  LayoutWish wish;
  double aim;
};

Tags tags(std::initializer_list<const char*> names) {
  Tags all;
  for (const char* name : names) all.push_back(toTAG(icu::UnicodeString(name)));
  return all;
}

LayoutWish latinWish() {
  return {toTAG(u"latn"), {}, tags({"liga"}), tags({"kern"}), false};
}

LayoutWish arabicWish() {
  return {toTAG(u"arab"), tags({"init", "medi", "fina", "isol"}), tags({"rlig", "calt", "liga"}),
          tags({"kern", "mark", "mkmk"}), true};
}

Tags allOf(const LayoutWish& wish) {
  Tags all = wish.substitute;
  all.insert(all.end(), wish.forms.begin(), wish.forms.end());
  all.insert(all.end(), wish.position.begin(), wish.position.end());
  return all;
}

Texts textsOf(const std::vector<std::string>& pieces) {
  Texts texts;
  for (const std::string& piece : pieces) texts.push_back(icu::UnicodeString::fromUTF8(piece));
  return texts;
}

/// Glyphs and advances as text, in the order of the text.
std::string told(const std::vector<QXFontService_NS::GlyphIDPosition>& glyphs) {
  std::string text;
  for (const auto& glyph : glyphs)
    text += std::to_string(glyph.getGlyphID()) + "+" + std::to_string(glyph.getMoveX()) + " ";
  return text;
}

std::string told(hb_buffer_t* buffer, bool rightToLeft) {
  if (rightToLeft) hb_buffer_reverse(buffer);
  unsigned count = 0;
  const hb_glyph_info_t* infos = hb_buffer_get_glyph_infos(buffer, &count);
  const hb_glyph_position_t* positions = hb_buffer_get_glyph_positions(buffer, &count);
  std::string text;
  for (unsigned i = 0; i < count; ++i)
    text += std::to_string(infos[i].codepoint) + "+" + std::to_string(positions[i].x_advance) + " ";
  return text;
}

/// What the sides give where it is not the same; empty where it is.
std::string difference(LayoutHost& host, HarfBuzzShaper& shaper, const icu::UnicodeString& text,
                       bool rightToLeft) {
  const std::string ours = told(host.shape(text));
  const std::string theirs = told(shaper.shape(text), rightToLeft);
  return ours == theirs ? std::string() : ours + "beside " + theirs;
}

void compareTexts(Bench& bench, const std::string& name, const Case& one, const OpenedFont& font,
                  const Texts& texts) {
  LayoutHost host(font.info(), one.wish);
  HarfBuzzShaper shaper(font.bytes(), one.script, allOf(one.wish));
  double units = 0;
  for (const icu::UnicodeString& text : texts) {
    units += text.length();
    const std::string why = difference(host, shaper, text, one.wish.rightToLeft);
    if (why.empty()) continue;
    bench.notComparable(name, why);
    return;
  }
  const auto ours = [&] {
    for (const icu::UnicodeString& text : texts) keep(host.shape(text).size());
  };
  const auto theirs = [&] {
    for (const icu::UnicodeString& text : texts) keep(hb_buffer_get_length(shaper.shape(text)));
  };
  const Times times = alternate(bench.settings(), {ours, {}}, {theirs, {}});
  bench.add({name, "hb_shape", "ns a character", Goal::atLeast, 1, one.aim,
             times.ours * 1e9 / units, times.theirs * 1e9 / units});
}

void compare(Bench& bench, const Case& one, const std::string& text) {
  const OpenedFont font(bench.fonts(), one.file);
  const std::string name = std::string(one.kind) + " " + one.file;
  if (!font) {
    bench.leaveOut(name, "the font is not here");
    return;
  }
  compareTexts(bench, name + ", words", one, font, textsOf(wordsOf(text)));
  compareTexts(bench, name + ", lines", one, font, textsOf(linesOf(text)));
}

void latin(Bench& bench) {
  const std::string text = latinText(bench.brief() ? 1000 : 20000);
  for (const char* file :
       {"DejaVuSans.ttf", "NotoSans-Regular.ttf", "NotoSerif-Regular.ttf", "Lato-Regular.ttf"})
    compare(bench, {"12", file, "shaping, Latin,", HB_SCRIPT_LATIN, latinWish(), 1.6}, text);
}

void arabic(Bench& bench) {
  const std::string text = arabicText(bench.brief() ? 500 : 10000);
  for (const char* file : {"NotoNaskhArabic-Regular.ttf", "NotoSansArabic-Regular.ttf",
                           "Amiri-Regular.ttf", "DejaVuSans.ttf"})
    compare(bench, {"13", file, "shaping, Arabic,", HB_SCRIPT_ARABIC, arabicWish(), 1.3}, text);
}

double timeAGlyph(const Bench& bench, const OpenedFont& font, const LayoutWish& wish,
                  const std::string& utf8) {
  LayoutHost host(font.info(), wish);
  const icu::UnicodeString text = icu::UnicodeString::fromUTF8(utf8);
  return alternate(bench.settings(), {{[&] { keep(host.shape(text).size()); }, {}}}).front() /
         text.length();
}

using MakeText = std::string (*)(std::size_t);

void grow(Bench& bench, const std::string& file, const LayoutWish& wish, MakeText makeText) {
  const OpenedFont font(bench.fonts(), file);
  if (!font) return;
  const double base = timeAGlyph(bench, font, wish, makeText(100));
  for (const std::size_t length : {10000U, 100000U}) {
    if (bench.brief() && length > 10000) continue;
    bench.add(Growth{
        "shaping a glyph, " + file + ", " + std::to_string(length) + " characters beside 100",
        timeAGlyph(bench, font, wish, makeText(length)) / base, length > 10000 ? 2.5 : 2});
  }
}

/// Contexts in plenty, and no forms: the passes alone.
void growth(Bench& bench) {
  LayoutWish wish = arabicWish();
  wish.forms.clear();
  grow(bench, "DejaVuSans.ttf", latinWish(), latinText);
  grow(bench, "Amiri-Regular.ttf", wish, arabicText);
  grow(bench, "NotoNastaliqUrdu-Regular.ttf", wish, arabicText);
}

/// A pass of a lookup over glyphs of which it covers none: letters of Latin, the forms of Arabic.
void nothingCovered(Bench& bench) {
  using QXFontService_NS::FS_FontInfo;
  const OpenedFont font(bench.fonts(), "DejaVuSans.ttf");
  if (!font) return;
  const icu::UnicodeString text = icu::UnicodeString::fromUTF8(latinText(10000));
  QXFontService_NS::GlyphIDArray2 glyphs;
  for (int i = 0; i < text.length(); ++i) {
    const unsigned short id = font.info().getGlyphID(text[i], false);
    glyphs.push_back(id, font.info().getGlyphClassDef(id));
  }
  auto* info = font.info().getGSUBGPOSInfo(toTAG(u"arab"), 0);
  double slowest = 0;
  for (int i = 0; const unsigned int tag = FS_FontInfo::getGSUBFeatureTag(info, i); ++i) {
    if (tag != toTAG(u"init") && tag != toTAG(u"medi") && tag != toTAG(u"fina")) continue;
    QXFontService_NS::GlyphIDArray2 result;
    const auto pass = [&] {
      keep(FS_FontInfo::processGSUB3(info, i, glyphs, result, 1) ? 1U : 0U);
    };
    slowest = std::max(slowest, alternate(bench.settings(), {{pass, {}}}).front());
  }
  FS_FontInfo::deleteGSUBGPOSInfo(info);
  bench.add(Growth{"ns a glyph of a pass whose lookup covers none of them",
                   slowest * 1e9 / text.length(), 2});
}

const Row kLatinRow{"12", "shaping, Latin", latin};
const Row kArabicRow{"13", "shaping, Arabic", arabic};
const Row kGrowthRow{"12", "shaping, growth", growth};
const Row kNothingRow{"12", "shaping, nothing covered", nothingCovered};

}  // namespace
}  // namespace qxbench
