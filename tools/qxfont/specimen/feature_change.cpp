#include "qxfont/specimen/feature_change.h"

#include <algorithm>
#include <utility>

#include "qxfont/cli/text.h"
#include "qxfont/shape/feature_plan.h"

namespace qxfont {
namespace {

constexpr double kEndless = 1e6;     // points: texts are looked at on one line
constexpr int kMostCharacters = 22;  // that fit beside each other

bool isSame(const Glyph& a, const Glyph& b) {
  return a.gid == b.gid && a.advance == b.advance && a.dx == b.dx && a.dy == b.dy;
}

std::vector<Glyph> glyphsOf(const std::vector<PlacedLine>& lines) {
  std::vector<Glyph> glyphs;
  for (const PlacedLine& line : lines)
    glyphs.insert(glyphs.end(), line.glyphs.begin(), line.glyphs.end());
  return glyphs;
}

std::vector<icu::UnicodeString> wordsOf(const icu::UnicodeString& text) {
  std::vector<icu::UnicodeString> words;
  for (int begin = 0; begin < text.length();) {
    const int blank = text.indexOf(u' ', begin);
    const int end = blank < 0 ? text.length() : blank;
    if (end > begin) words.push_back(text.tempSubStringBetween(begin, end));
    begin = end + 1;
  }
  return words;
}

bool isUsual(LayoutTag tag) {
  const std::vector<LayoutTag> usual = textFeatures();
  return std::find(usual.begin(), usual.end(), tag) != usual.end();
}

/// What a face has of a text, word by word.
icu::UnicodeString settable(const icu::UnicodeString& text, const Characters& characters) {
  icu::UnicodeString out;
  for (const icu::UnicodeString& word : wordsOf(text)) {
    if (!characters.hasAll(word)) continue;
    if (!out.isEmpty()) out.append(u' ');
    out.append(word);
  }
  return out;
}

}  // namespace

bool FeatureProbe::changes(const icu::UnicodeString& text, LayoutTag tag) const {
  LineStyle style;
  style.face = face_;
  style.size = 1;
  style.width = kEndless;
  style.switches = {{tag, false}};
  const std::vector<Glyph> without = glyphsOf(setter_.set(text, style));
  style.switches = {{tag, true}};
  const std::vector<Glyph> with = glyphsOf(setter_.set(text, style));
  return !std::equal(without.begin(), without.end(), with.begin(), with.end(), isSame);
}

icu::UnicodeString wordsThat(const icu::UnicodeString& text,
                             const std::function<bool(const icu::UnicodeString&)>& takes) {
  icu::UnicodeString out;
  for (const icu::UnicodeString& word : wordsOf(text)) {
    if (out.countChar32() + word.countChar32() + 1 > kMostCharacters) continue;
    if (!takes(word)) continue;
    if (!out.isEmpty()) out.append(u' ');
    out.append(word);
  }
  return out.isEmpty() ? text : out;
}

std::optional<FeatureChange> findChange(const KnownFeature& feature, const Characters& characters,
                                        const std::vector<SampleText>& samples,
                                        const FeatureProbe& probe) {
  std::vector<icu::UnicodeString> texts = {settable(unicode(feature.text), characters)};
  for (const SampleText& sample : samples) texts.push_back(sample.text);
  const auto changes = [&](const icu::UnicodeString& text) {
    return probe.changes(text, feature.tag);
  };
  for (const icu::UnicodeString& text : texts) {
    if (!text.isEmpty() && changes(text))
      return FeatureChange{feature.tag, feature.name, wordsThat(text, changes),
                           isUsual(feature.tag)};
  }
  return std::nullopt;
}

}  // namespace qxfont
