#include "qxfont/shape/layout_shaper.h"

#include <unicode/uchar.h>

#include <algorithm>
#include <cstddef>
#include <utility>

#include "qxfont/shape/feature_plan.h"
#include "qxfont/shape/joining.h"
#include "qxfont/shape/mark_order.h"

namespace qxfont {
namespace {

using Font = fs::FS_FontInfo;
using Tags = std::vector<LayoutTag>;

// What the positioning lookups are told of each glyph.
constexpr int kPlacedAbsolutely = 0x8000;
constexpr int kKnowsComponents = 0x4000;  // on the glyph before a mark of a ligature
constexpr int kSeesZeroWidths = 0x1000;   // on a mark: a base without width is a base

constexpr LayoutTag kKern = layoutTag("kern");

bool has(const Tags& tags, LayoutTag tag) {
  return std::find(tags.begin(), tags.end(), tag) != tags.end();
}

bool isMark(const RunGlyph& glyph) {
  return glyph.pair.glyphClass == fs::GCD_MARK;
}

bool isSelector(int codePoint) {
  return u_hasBinaryProperty(codePoint, UCHAR_VARIATION_SELECTOR) != 0;
}

bool isHidden(int codePoint) {
  return u_hasBinaryProperty(codePoint, UCHAR_DEFAULT_IGNORABLE_CODE_POINT) != 0;
}

/// Of a font that classes no glyphs, the class comes from the character.
fs::GlyphClassDef classOf(const Font& font, unsigned short gid, int codePoint) {
  const fs::GlyphClassDef known = font.getGlyphClassDef(gid);
  if (known != fs::GCD_NO_TABLE) return known;
  return u_charType(codePoint) == U_NON_SPACING_MARK ? fs::GCD_MARK : fs::GCD_BASE;
}

std::vector<RunCharacter> charactersOf(const icu::UnicodeString& text, int begin, int end) {
  std::vector<RunCharacter> characters;
  for (int i = begin; i < end; i = text.moveIndex32(i, 1)) {
    const int codePoint = text.char32At(i);
    if (isSelector(codePoint) && !characters.empty()) {
      characters.back().selector = codePoint;
    } else {
      characters.push_back({codePoint, i, 0});
    }
  }
  return characters;
}

ShapedGlyph shaped(const RunGlyph& glyph, const fs::GlyphIDPosition& position) {
  return {glyph.pair.glyphID, glyph.cluster, position.getMoveX(), position.getMoveX1(),
          -position.getMoveY()};
}

}  // namespace

LayoutShaper::LayoutShaper(const Font& font, ShapeRequest request)
    : font_(font),
      request_(std::move(request)),
      info_(font.getGSUBGPOSInfo(request_.script, request_.language), &Font::deleteGSUBGPOSInfo) {}

std::vector<ShapedGlyph> LayoutShaper::shape(const icu::UnicodeString& text, int begin,
                                             int end) const {
  GlyphRun run = characters(text, begin, end);
  const bool joins =
      std::any_of(run.begin(), run.end(), [](const RunGlyph& glyph) { return glyph.form != 0; });
  substitute(run, joins);
  run.erase(
      std::remove_if(run.begin(), run.end(), [](const RunGlyph& glyph) { return glyph.hidden; }),
      run.end());
  Positions positions = place(run);
  position(run, positions);
  std::vector<ShapedGlyph> glyphs;
  for (std::size_t i = 0; i < run.size(); ++i) glyphs.push_back(shaped(run[i], positions[i]));
  return glyphs;
}

GlyphRun LayoutShaper::characters(const icu::UnicodeString& text, int begin, int end) const {
  const std::vector<LayoutTag> forms = joiningForms(text);
  std::vector<RunCharacter> characters = charactersOf(text, begin, end);
  orderArabicMarks(characters);
  GlyphRun run;
  for (const RunCharacter& character : characters) {
    const int codePoint =
        request_.rightToLeft ? u_charMirror(character.codePoint) : character.codePoint;
    RunGlyph glyph;
    glyph.hidden = isHidden(codePoint);
    const unsigned short gid = glyphOf(codePoint, character.selector);
    if (glyph.hidden && gid == 0) continue;
    glyph.pair = {gid, classOf(font_, gid, codePoint)};
    glyph.cluster = character.index;
    glyph.form = forms[static_cast<std::size_t>(character.index)];
    run.push_back(glyph);
  }
  return run;
}

unsigned short LayoutShaper::glyphOf(int codePoint, int selector) const {
  if (selector != 0) {
    const unsigned short varied = font_.variationSequence(codePoint, selector);
    if (varied != fs::FS_NO_GLYPH) return varied;
  }
  const unsigned short gid = font_.getGlyphID(codePoint, request_.vertical);
  return gid == fs::FS_NO_GLYPH ? static_cast<unsigned short>(0) : gid;
}

void LayoutShaper::substitute(GlyphRun& run, bool joins) const {
  if (!Font::hasGSUBInfo(info_.get())) return;
  const FeaturePlan plan = makeFeaturePlan({request_.vertical, joins, request_.features});
  for (std::size_t stage = 0; stage < plan.stages.size(); ++stage) {
    if (joins && stage == plan.formsBehind)
      for (const LayoutTag form : plan.forms) chooseForms(run, form);
    runStage(run, plan.stages[stage]);
  }
}

void LayoutShaper::runStage(GlyphRun& run, const Tags& features) const {
  for (int index = 0; const LayoutTag tag = Font::getGSUBFeatureTag(info_.get(), index); ++index) {
    if (!has(features, tag)) continue;
    fs::GlyphIDArray2 result;
    if (!Font::processGSUB3(info_.get(), index, glyphsOf(run), result, 1)) continue;
    run = accountForPass(run, passedGlyphs(result));
    tell("GSUB", index, tag, run, place(run));
  }
}

void LayoutShaper::chooseForms(GlyphRun& run, LayoutTag form) const {
  if (!Font::hasGSUBFeature(info_.get(), form)) return;
  bool changed = false;
  for (int i = 0; i < static_cast<int>(run.size()); ++i) {
    if (run[static_cast<std::size_t>(i)].form != form) continue;
    int end = i;
    fs::GlyphIDArray output;
    fs::GlyphIDArray passed;
    const int count = Font::processGSUB(info_.get(), form, glyphsOf(run), end, output, passed, 1);
    if (count == 0) continue;
    output.erase(count, output.size());
    for (const fs::GlyphIDClassPair& pair : passed) output.push_back(pair);
    accountForStep(run, i, end, output, count);
    i += output.size() - 1;
    changed = true;
  }
  if (changed) tell("GSUB", -1, form, run, place(run));
}

/// Glyphs side by side. A mark takes no room: it stands on what is before it.
LayoutShaper::Positions LayoutShaper::place(const GlyphRun& run) const {
  Positions positions;
  for (const RunGlyph& glyph : run) {
    const float width = isMark(glyph) && !request_.vertical
                            ? 0
                            : font_.getGlyphWidth(glyph.pair.glyphID, 0, request_.vertical);
    fs::GlyphIDPosition position(1, static_cast<int>(width));
    position.setGlyph2(glyph.pair, static_cast<int>(width));
    position.setFlag(kPlacedAbsolutely | (isMark(glyph) ? kSeesZeroWidths : 0));
    position.setSkipInfo(glyph.component);
    if (glyph.component > 0 && !positions.empty()) positions.back().setFlag(kKnowsComponents);
    positions.push_back(position);
  }
  return positions;
}

void LayoutShaper::position(const GlyphRun& run, Positions& positions) const {
  const FeaturePlan plan = makeFeaturePlan({request_.vertical, false, request_.features});
  const bool wantsKern = has(plan.positions, kKern) && !request_.vertical;
  const bool byGpos = Font::hasGPOSInfo(info_.get()) && Font::hasGPOSFeature(info_.get(), kKern);
  if (wantsKern && !byGpos) kernPairs(run, positions);
  if (!Font::hasGPOSInfo(info_.get())) return;
  for (int index = 0; const LayoutTag tag = Font::getGPOSFeatureTag(info_.get(), index); ++index) {
    if (!has(plan.positions, tag)) continue;
    const int first = Font::processGPOS3(info_.get(), index, positions, request_.rightToLeft);
    if (first >= 0) tell("GPOS", index, tag, run, positions);
  }
}

void LayoutShaper::kernPairs(const GlyphRun& run, Positions& positions) const {
  if (!font_.hasPairKerningInfo(false)) return;
  for (std::size_t i = 0; i + 1 < run.size(); ++i) {
    const float value =
        font_.getPairKerningValue(run[i].pair.glyphID, run[i + 1].pair.glyphID, 0, false);
    positions[i].addMoveX2(static_cast<int>(value));
  }
}

void LayoutShaper::tell(const char* table, int index, LayoutTag feature, const GlyphRun& run,
                        const Positions& positions) const {
  if (!request_.trace) return;
  LookupTrace trace{table, index, feature, {}};
  for (std::size_t i = 0; i < run.size(); ++i) trace.glyphs.push_back(shaped(run[i], positions[i]));
  request_.trace(trace);
}

}  // namespace qxfont
