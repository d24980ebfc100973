#pragma once

#include <cstdint>
#include <vector>

#include "embed/cff/cff_subset_source.h"
#include "embed/charstring/type2_walker.h"

namespace QXFontService_NS::embed {

/// Finds the glyphs that accented composites need: a Type 2 charstring that ends in `endchar` with
/// four operands is made of two glyphs, named by their codes in StandardEncoding. Reads what the
/// search needs at once, and serves any number of glyphs.
class CompositeFinder {
 public:
  /// `isoAdobe`: the font has the predefined charset 0, in which glyph ids are SIDs; what was read
  /// of a font does not tell of predefined charsets.
  explicit CompositeFinder(const CffSubsetSource& source, bool isoAdobe = false)
      : source_(source), isoAdobe_(isoAdobe) {}

  /// Reads subroutines and the head of the CharStrings INDEX of a name-keyed font.
  [[nodiscard]] bool open();
  /// Appends the component glyphs of `glyph`. False where its charstring cannot be read or is
  /// endless.
  [[nodiscard]] bool addParts(std::uint16_t glyph, std::vector<std::uint16_t>& parts);

 private:
  void addPart(int code, std::vector<std::uint16_t>& parts) const;

  const CffSubsetSource& source_;
  bool isoAdobe_;
  FS_CFFStrings globalSubrs_;
  cff::LocalSubrs localSubrs_;
  FS_CFFIndexHeader charStrings_;
  charstring::WorkBudget budget_ = charstring::glyphBudget();  // of all glyphs together
};

/// Appends the components of the composites among `glyphs`. What is appended is not searched: only
/// one level of composites is followed, as documents already written expect.
[[nodiscard]] bool addCompositeGlyphs(const CffSubsetSource& source,
                                      std::vector<std::uint16_t>& glyphs);

}  // namespace QXFontService_NS::embed
