#include "qxfont/specimen/sample_text.h"

#include <utility>

#include "qxfontservice/glyph_draw_info.h"

#include "qxfont/cli/text.h"

namespace qxfont {
namespace {

namespace fs = QXFontService_NS;

constexpr int kOwnCharacters = 24;
constexpr int kMostLookedAt = 1000;

/// Glyphs of Type 1 fonts are not told by their characters: each is taken for drawn.
bool isDrawn(const fs::FS_FontInfo& font, int codePoint) {
  if (font.isType1Font()) return true;
  fs::FS_GlyphDrawInfo glyph;
  return font.getGlyphDrawInfo(font.getGlyphID(codePoint, false), glyph, false) &&
         !glyph.contours.empty();
}

}  // namespace

std::vector<SampleText> sentencesOf(const Characters& characters) {
  std::vector<SampleText> samples;
  for (const SentenceRow& row : sentences()) {
    if (!samples.empty() && samples.back().script == row.script) continue;
    icu::UnicodeString text = unicode(row.text);
    if (characters.hasAll(text)) samples.push_back({row.script, std::move(text)});
  }
  return samples;
}

icu::UnicodeString firstOf(const Characters& characters, const std::function<bool(int)>& isDrawn) {
  icu::UnicodeString text;
  int lookedAt = 0;
  for (const int codePoint : characters.codes()) {
    if (!isSeen(codePoint)) continue;
    if (text.countChar32() == kOwnCharacters || lookedAt++ == kMostLookedAt) break;
    if (isDrawn(codePoint)) text.append(static_cast<UChar32>(codePoint));
  }
  return text;
}

std::vector<SampleText> sampleTexts(const fs::FS_FontInfo& font, const Characters& characters) {
  if (!font.isSymbolicFont()) {
    std::vector<SampleText> samples = sentencesOf(characters);
    if (!samples.empty()) return samples;
  }
  icu::UnicodeString own = firstOf(characters, [&](int code) { return isDrawn(font, code); });
  if (own.isEmpty()) return {};
  return {{"first characters", std::move(own)}};
}

}  // namespace qxfont
