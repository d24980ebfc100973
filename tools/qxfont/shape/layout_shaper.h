#pragma once

#include <unicode/unistr.h>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "qxfont/cli/service.h"
#include "qxfont/shape/glyph_account.h"
#include "qxfont/shape/layout_tag.h"

namespace qxfont {

/// A glyph at its place; font units, y upward.
struct ShapedGlyph {
  unsigned short gid = 0;
  int cluster = 0;  ///< UTF-16 index of the first character that it stands for
  int advance = 0;  ///< along the line
  int dx = 0;       ///< of its origin from the pen
  int dy = 0;
};

/// A lookup that changed something, for those who want to watch.
struct LookupTrace {
  const char* table;  ///< "GSUB" or "GPOS"
  int index;          ///< among the lookups of the script and language
  LayoutTag feature;
  std::vector<ShapedGlyph> glyphs;  ///< after it, in the order of the text
};

struct ShapeRequest {
  LayoutTag script = 0;
  LayoutTag language = 0;
  bool rightToLeft = false;
  bool vertical = false;
  /// These features and no others; none: those that all text wants.
  std::optional<std::vector<LayoutTag>> features;
  std::function<void(const LookupTrace&)> trace;
};

/// Sets text in one face by the substitutions and positions of OpenType layout.
///
/// Forms of letters in cursive scripts are chosen by the joining types of Unicode; in text from
/// right to left characters are mirrored (UAX #9, L4). A font without `GPOS` kerning is kerned by
/// its `kern` table.
class LayoutShaper {
 public:
  /// @param font which outlives the shaper.
  LayoutShaper(const fs::FS_FontInfo& font, ShapeRequest request);

  /// The glyphs of a part of a text, in the order of the text: those of text from right to left
  /// are drawn from the last to the first.
  std::vector<ShapedGlyph> shape(const icu::UnicodeString& text, int begin, int end) const;

 private:
  using Positions = std::vector<fs::GlyphIDPosition>;

  GlyphRun characters(const icu::UnicodeString& text, int begin, int end) const;
  unsigned short glyphOf(int codePoint, int selector) const;
  void substitute(GlyphRun& run, bool joins) const;
  void runStage(GlyphRun& run, const std::vector<LayoutTag>& features) const;
  void chooseForms(GlyphRun& run, LayoutTag form) const;
  Positions place(const GlyphRun& run) const;
  void position(const GlyphRun& run, Positions& positions) const;
  void kernPairs(const GlyphRun& run, Positions& positions) const;
  void tell(const char* table, int index, LayoutTag feature, const GlyphRun& run,
            const Positions& positions) const;

  const fs::FS_FontInfo& font_;
  ShapeRequest request_;
  std::shared_ptr<fs::FS_GSUBGPOSInfo> info_;
};

}  // namespace qxfont
