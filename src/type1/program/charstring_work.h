#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "common/limits.h"
#include "type1/program/program_char_strings.h"

namespace QXFontService_NS::type1 {

/// Walks the charstrings of a font program with one budget for all of them, since a few bytes of
/// nested subroutine calls keep FreeType busy for half a second a glyph, and a program can have
/// thousands of such glyphs.
class CharStringWork {
 public:
  /// @param mostWork tokens that all glyphs may take.
  explicit CharStringWork(ProgramCharStrings program,
                          std::uint64_t mostWork = QXCommonNS::limits::kMostProgramWork)
      : program_(std::move(program)), left_(mostWork) {}

  /// Takes the work of a glyph off.
  /// @return false, from then on for good, where the budget does not reach.
  bool spend(std::string_view glyph);

  [[nodiscard]] std::uint64_t left() const { return left_; }

 private:
  using Operand = std::optional<int>;  // nothing: computed, and not known here

  bool take(std::uint64_t work);
  void walkGlyph(std::string_view glyph);
  bool walk(std::string_view code, int depth);
  bool callSubr(int depth);
  bool escape(int number);
  void callOther();
  bool walkParts();
  Operand pop();

  ProgramCharStrings program_;
  std::uint64_t left_;
  bool isPart_ = false;
  std::vector<Operand> stack_;
  std::vector<Operand> results_;
};

}  // namespace QXFontService_NS::type1
