#pragma once

#include <cassert>
#include <cstddef>
#include <vector>

#include "qxcommon/export.h"
#include "qxfontservice/glyph_id_array.h"

namespace QXFontService_NS {

/// A glyph sequence with a second one beside it, the correspondence words: after a whole-array
/// `GSUB` pass they tell how many of the given glyphs each resulting glyph stands for.
///
/// The operations inherited from `GlyphIDArray` leave the words alone, so the two sequences need
/// not be equal in length.
class QX_EXPORT GlyphIDArray2 : public GlyphIDArray {
 public:
  GlyphIDArray2();
  /// `n` places without a glyph, each with a word of 0; none where `n` is negative.
  explicit GlyphIDArray2(int n);
  GlyphIDArray2(const GlyphIDArray2&);
  GlyphIDArray2& operator=(const GlyphIDArray2&);
  ~GlyphIDArray2();

  /// Empties both sequences.
  void clear();
  /// As `GlyphIDArray::readGIDs`; the words are emptied and stay so.
  int readGIDs(const std::vector<GlyphIDPosition>& positions, bool skipIgnored);

  /// How many given glyphs the glyph at `i` stands for: 1, the sum of its parts for a ligature, 0
  /// for a glyph that an expansion added behind its first. The word of `i` must exist: it is not
  /// tested outside debug builds.
  int ligaInfo(int i) const {
    assert(i >= 0 && static_cast<std::size_t>(i) < words_.size());
    return static_cast<int>(words_[static_cast<std::size_t>(i)] & 0xFFFF);
  }
  /// For a glyph that a ligature passed over, the index it had then; else 0, also where `i` is
  /// outside the words.
  int skipInfo(int i) const {
    if (i < 0 || static_cast<std::size_t>(i) >= words_.size()) return 0;
    return static_cast<int>(words_[static_cast<std::size_t>(i)] >> 16);
  }

 private:
  friend struct GlyphRecordAccess;

  std::vector<unsigned int> words_;
};

}  // namespace QXFontService_NS
