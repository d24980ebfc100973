#include "layout/gsub/pass_arrays.h"

#include <utility>

#include "layout/records/glyph_record_access.h"

namespace QXFontService_NS::layout {

PassArrays::PassArrays(GlyphIDArray2& array, const std::vector<unsigned int>& maskWords)
    : glyphs_(std::move(GlyphRecordAccess::pairs(array))),
      words_(std::move(GlyphRecordAccess::words(array))),
      mask_(maskWords, glyphs_.size()) {}

void PassArrays::release(GlyphIDArray2& array) {
  GlyphRecordAccess::pairs(array) = glyphs_.release();
  GlyphRecordAccess::words(array) = words_.release();
}

GlyphSequence PassArrays::view(WorkMeter& meter) const {
  return {glyphs_.data(), glyphs_.size(), glyphs_.gapStart(), glyphs_.gapLength(), meter};
}

unsigned int& PassArrays::word(int i) {
  requireInside(i, words_.size());
  return words_[i];
}

void PassArrays::insertPlaces(int at, int count) {
  words_.insert(at, count, 0U);
  mask_.insertZeros(at, count);
}

void PassArrays::merge(int i, int first, int last) {
  glyphs_.erase(first, last);
  mergePlaces(i, first, last);
}

void PassArrays::mergePlaces(int to, int first, int last) {
  for (int k = first; k < last; ++k) word(to) += word(k);
  words_.erase(first, last);
  mask_.erase(first, last);
}

void PassArrays::mergeKeepingSkipped(int i, int from, int end, const std::vector<int>& skipped) {
  int write = from;
  auto next = skipped.begin();
  for (int read = from; read < end; ++read) {
    if (next != skipped.end() && *next == read) {
      keep(read, write++);
      ++next;
    } else {
      word(i) += word(read);
    }
  }
  glyphs_.erase(write, end);
  words_.erase(write, end);
  mask_.erase(write, end);
}

void PassArrays::keep(int from, int to) {
  requireInside(from, glyphs_.size());
  glyphs_[to] = glyphs_[from];
  word(to) = word(from) | static_cast<unsigned int>(from) << 16;
  mask_.copy(from, to);
}

int PassArrays::holderOf(int i) const {
  requireInside(i, words_.size());
  while (i > 0 && words_[i] == 0) --i;
  return i;
}

}  // namespace QXFontService_NS::layout
