#pragma once

#include <vector>

#include "qxfontservice/glyph_id_array2.h"

#include "layout/gsub/gap_buffer.h"
#include "layout/gsub/pass_mask.h"
#include "layout/records/glyph_sequence.h"

namespace QXFontService_NS::layout {

/// What a pass works on, in step: the glyphs, for each how many given glyphs it stands for (its
/// correspondence word), and the mask.
///
/// They fall out of step where a nested ligature has no components; a place that is not in all of
/// them then raises `std::out_of_range`, which ends the pass.
class PassArrays {
 public:
  /// Takes glyphs and words, which are equal in length, out of `array`.
  PassArrays(GlyphIDArray2& array, const std::vector<unsigned int>& maskWords);
  /// Puts glyphs and words into `array`.
  void release(GlyphIDArray2& array);

  [[nodiscard]] int size() const { return glyphs_.size(); }
  [[nodiscard]] const GlyphIDClassPair& glyph(int i) const { return glyphs_[i]; }
  void setGlyph(int i, const GlyphIDClassPair& pair) { glyphs_[i] = pair; }
  /// Whether a lookup may begin at `i`.
  [[nodiscard]] bool isFree(int i) const { return mask_.at(i) == 0; }
  /// The glyphs as matchers see them; good until the next change.
  [[nodiscard]] GlyphSequence view(WorkMeter& meter) const;

  void insertGlyphs(int at, std::span<const GlyphIDClassPair> pairs) { glyphs_.insert(at, pairs); }
  void eraseGlyphs(int first, int last) { glyphs_.erase(first, last); }
  /// Adds `count` places to words and mask: they stand for no given glyph and are free.
  void insertPlaces(int at, int count);

  /// Lets the glyph at `i` stand for those of [first, last) too, and removes all of these.
  void merge(int i, int first, int last);
  /// The same for words and mask alone, the words going to `to`.
  void mergePlaces(int to, int first, int last);
  /// Lets the glyph at `i` stand for those of [from, end), and removes them but those at the
  /// places in `skipped`: these follow it, each marked with its old index in its word's high half.
  void mergeKeepingSkipped(int i, int from, int end, const std::vector<int>& skipped);
  /// The place at or before `i` whose word is not 0; 0 if there is none. The glyphs of an
  /// expansion have a word of 0 but the first, which holds the count.
  [[nodiscard]] int holderOf(int i) const;

 private:
  [[nodiscard]] unsigned int& word(int i);
  void keep(int from, int to);

  GapBuffer<GlyphIDClassPair> glyphs_;
  GapBuffer<unsigned int> words_;
  PassMask mask_;
};

}  // namespace QXFontService_NS::layout
