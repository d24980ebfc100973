#include "qxfont/typeset/shaper.h"

#include <unicode/uchar.h>

#include <algorithm>
#include <set>

#include "qxfont/shape/layout_shaper.h"
#include "qxfont/shape/script_tags.h"
#include "qxfont/typeset/type1_shaper.h"

namespace qxfont {
namespace {

double em(const fs::FS_FontInfo& font, double units) {
  return units / std::max(font.getUnitsPerEm(), 1);
}

/// The first of a script's tags that the font's layout tables know.
LayoutTag scriptTagOf(const fs::FS_FontInfo& font, UScriptCode script) {
  using Font = fs::FS_FontInfo;
  for (const LayoutTag tag : scriptTags(script)) {
    const std::unique_ptr<fs::FS_GSUBGPOSInfo, void (*)(fs::FS_GSUBGPOSInfo*)> info(
        font.getGSUBGPOSInfo(tag, 0), &Font::deleteGSUBGPOSInfo);
    if (Font::hasGSUBInfo(info.get()) || Font::hasGPOSInfo(info.get())) return tag;
  }
  return kDefaultScript;
}

bool wantsKerning(const std::vector<FeatureSwitch>& switches) {
  const std::vector<LayoutTag> tags = textFeatures(switches);
  return std::find(tags.begin(), tags.end(), layoutTag("kern")) != tags.end();
}

/// Cuts the text of a run where its glyphs begin.
class Clusters {
 public:
  Clusters(const icu::UnicodeString& text, const Run& run, const std::vector<ShapedGlyph>& glyphs)
      : text_(text) {
    for (const ShapedGlyph& glyph : glyphs) begins_.insert(glyph.cluster);
    begins_.insert(run.end);
  }

  /// The text that begins at an index; none when it was taken before.
  icu::UnicodeString take(int begin) {
    const auto end = begins_.upper_bound(begin);
    if (end == begins_.end() || !taken_.insert(begin).second) return {};
    return {text_, begin, *end - begin};  // a copy: lines may outlive their text
  }

 private:
  const icu::UnicodeString& text_;
  std::set<int> begins_;
  std::set<int> taken_;
};

}  // namespace

bool isInvisible(int codePoint) {
  return u_hasBinaryProperty(codePoint, UCHAR_DEFAULT_IGNORABLE_CODE_POINT) != 0;
}

void Shaper::shape(const icu::UnicodeString& text, const Run& run,
                   const std::vector<FeatureSwitch>& switches, std::vector<Glyph>& glyphs) const {
  const fs::FS_FontInfo& font = fonts_.font(run.face);
  if (font.isType1Font()) return shapeType1(font, text, run, wantsKerning(switches), glyphs);
  ShapeRequest request;
  request.script = scriptTagOf(font, run.script);
  request.rightToLeft = run.rightToLeft;
  request.features = textFeatures(switches);
  const auto shaped = LayoutShaper(font, std::move(request)).shape(text, run.begin, run.end);
  Clusters clusters(text, run, shaped);
  for (const ShapedGlyph& one : shaped) {
    Glyph glyph;
    glyph.face = run.face;
    glyph.gid = one.gid;
    glyph.width = em(font, static_cast<double>(font.getGlyphWidth(one.gid, 0, false)));
    glyph.advance = em(font, one.advance);
    glyph.dx = em(font, one.dx);
    glyph.dy = em(font, one.dy);
    glyph.begin = one.cluster;
    glyph.text = clusters.take(one.cluster);
    glyphs.push_back(glyph);
  }
}

}  // namespace qxfont
