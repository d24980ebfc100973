#pragma once

#include <unicode/unistr.h>
#include <unicode/uscript.h>

#include <cstddef>
#include <vector>

#include "qxfont/shape/feature_plan.h"
#include "qxfont/typeset/font_set.h"

namespace qxfont {

/// A stretch of text in one face, script and direction.
struct Run {
  int begin = 0;  ///< UTF-16 index
  int end = 0;
  std::size_t face = 0;
  bool missing = false;  ///< No face has these characters.
  UScriptCode script = USCRIPT_COMMON;
  bool rightToLeft = false;
};

/// A glyph on its line; lengths in em.
struct Glyph {
  std::size_t face = 0;
  unsigned short gid = 0;   ///< in a Type 1 face its page and code, page << 8 | code
  double width = 0;         ///< as the font has it
  double advance = 0;       ///< with kerning
  double dx = 0;            ///< of its origin from the pen
  double dy = 0;            ///< the same, upward
  int begin = 0;            ///< UTF-16 index of the characters that it stands for
  icu::UnicodeString text;  ///< those characters; none where the glyph before stands for them too
};

/// Turns runs of text into glyphs by OpenType layout, with the features that all text wants; in
/// Type 1 faces character by character.
class Shaper {
 public:
  explicit Shaper(const FontSet& fonts) : fonts_(fonts) {}

  /// Appends the glyphs of a run, in the order of the text.
  /// @param switches what the text wants beside the features of all text. Type 1 faces know `kern`.
  void shape(const icu::UnicodeString& text, const Run& run,
             const std::vector<FeatureSwitch>& switches, std::vector<Glyph>& glyphs) const;

 private:
  const FontSet& fonts_;
};

/// Whether a character is never seen by itself, such as a joiner or a variation selector.
bool isInvisible(int codePoint);

}  // namespace qxfont
