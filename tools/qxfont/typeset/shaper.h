#pragma once

#include <unicode/unistr.h>

#include <cstddef>
#include <vector>

#include "qxfont/typeset/font_set.h"

namespace qxfont {

/// A stretch of text in one face.
struct Run {
  int begin = 0;  ///< UTF-16 index
  int end = 0;
  std::size_t face = 0;
  bool missing = false;  ///< No face has these characters.
};

/// A glyph on its line; lengths in em.
struct Glyph {
  std::size_t face = 0;
  unsigned short gid = 0;
  double width = 0;         ///< as the font has it
  double advance = 0;       ///< with kerning
  int begin = 0;            ///< UTF-16 index of the characters that it stands for
  icu::UnicodeString text;  ///< those characters
};

/// Turns runs of text into glyphs. Layout by the tables of OpenType takes its place here.
class Shaper {
 public:
  Shaper() = default;
  Shaper(const Shaper&) = delete;
  Shaper& operator=(const Shaper&) = delete;
  virtual ~Shaper() = default;

  /// Appends the glyphs of a run, in the order of the text.
  virtual void shape(const icu::UnicodeString& text, const Run& run,
                     std::vector<Glyph>& glyphs) const = 0;
};

/// One glyph a character by the character map, with the pair kerning of the `kern` table.
class PlainShaper final : public Shaper {
 public:
  explicit PlainShaper(const FontSet& fonts) : fonts_(fonts) {}
  void shape(const icu::UnicodeString& text, const Run& run,
             std::vector<Glyph>& glyphs) const override;

 private:
  const FontSet& fonts_;
};

/// Whether a character is never seen by itself, such as a joiner or a variation selector.
bool isInvisible(int codePoint);

}  // namespace qxfont
