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
  /// What the format allows and the plain subset does not take: documents rely on its answers.
  struct Allowances {
    /// The font has the predefined charset 0, in which glyph ids are SIDs; what was read of a font
    /// does not tell of predefined charsets.
    bool isoAdobe = false;
    /// A Private DICT of no bytes has no subroutines, and is no failure.
    bool emptyPrivate = false;
  };
  explicit CompositeFinder(const CffSubsetSource& source) : CompositeFinder(source, Allowances()) {}
  CompositeFinder(const CffSubsetSource& source, Allowances allowed)
      : source_(source), allowed_(allowed) {}

  /// Reads subroutines and the head of the CharStrings INDEX of a name-keyed font.
  [[nodiscard]] bool open();
  /// Appends the component glyphs of `glyph`. False where its charstring cannot be read or is
  /// endless.
  [[nodiscard]] bool addParts(std::uint16_t glyph, std::vector<std::uint16_t>& parts);

 private:
  [[nodiscard]] bool readSubrs();
  void addPart(int code, std::vector<std::uint16_t>& parts) const;

  const CffSubsetSource& source_;
  Allowances allowed_;
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
