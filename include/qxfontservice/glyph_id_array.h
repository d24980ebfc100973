#pragma once

#include <cassert>
#include <cstddef>
#include <vector>

#include "qxcommon/export.h"
#include "qxfontservice/glyph_id_class_pair.h"

namespace QXFontService_NS {

class GlyphIDPosition;
struct GlyphRecordAccess;

/// A sequence of glyphs, as a host hands it to the OpenType `GSUB` operations.
///
/// Indices are `int`. An ordinary value: copies are independent, distinct objects may be used on
/// distinct threads.
class QX_EXPORT GlyphIDArray {
 public:
  GlyphIDArray();
  /// `n` places without a glyph, (0xFFFF, -1); none where `n` is negative.
  explicit GlyphIDArray(int n);
  GlyphIDArray(const GlyphIDArray&);
  GlyphIDArray& operator=(const GlyphIDArray&);
  ~GlyphIDArray();

  /// How many places there are, those without a glyph included.
  int size() const { return static_cast<int>(pairs_.size()); }
  /// Whether there is no place at all.
  bool empty() const { return pairs_.empty(); }
  /// Removes all places.
  void clear();

  ///@{
  /// The pair at index `i`, which must be inside: it is not tested outside debug builds.
  GlyphIDClassPair& operator[](int i) { return pairs_[checked(i)]; }
  const GlyphIDClassPair& operator[](int i) const { return pairs_[checked(i)]; }
  ///@}
  ///@{
  /// The same as `operator[]`: not tested either.
  GlyphIDClassPair& at(int i) { return pairs_[checked(i)]; }
  const GlyphIDClassPair& at(int i) const { return pairs_[checked(i)]; }
  ///@}

  ///@{
  /// The places in order, for loops; good until the array changes.
  std::vector<GlyphIDClassPair>::const_iterator begin() const { return pairs_.begin(); }
  std::vector<GlyphIDClassPair>::const_iterator end() const { return pairs_.end(); }
  ///@}

  ///@{
  /// Appends a pair, which may be one of this array's own.
  void push_back(const GlyphIDClassPair& pair);
  void push_back(unsigned short glyph, GlyphClassDef cls);
  ///@}
  ///@{
  /// Inserts before index `i`; appends where `i` is negative or not below the size. The pair may
  /// be one of this array's own.
  void insert(int i, const GlyphIDClassPair& pair);
  void insert(int i, unsigned short glyph, GlyphClassDef cls);
  ///@}
  /// Removes the pairs of [first, last), as far as they exist; nothing unless `first` is below
  /// `last`.
  void erase(int first, int last);

  /// Replaces the contents by the pairs of `positions`, in their order.
  ///
  /// @param skipIgnored true leaves out the records of class -2 (and keeps those without a glyph),
  ///   false leaves out those of glyph 0xFFFF. Indices differ from those of `positions` as soon as
  ///   one is left out; the host keeps the mapping.
  /// @return the resulting size
  int readGIDs(const std::vector<GlyphIDPosition>& positions, bool skipIgnored);

 private:
  friend struct GlyphRecordAccess;

  std::size_t checked(int i) const {
    assert(i >= 0 && i < size());
    return static_cast<std::size_t>(i);
  }

  std::vector<GlyphIDClassPair> pairs_;
};

}  // namespace QXFontService_NS
