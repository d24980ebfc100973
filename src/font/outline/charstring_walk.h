#pragma once

#include <cstdint>
#include <vector>

#include "common/limits.h"
#include "embed/cff/cff_info.h"
#include "embed/cff/fd_array.h"
#include "embed/charstring/tokens.h"
#include "font/directory/table_directory.h"
#include "font/outline/file_window.h"

namespace QXFontService_NS::outline {

/// Walks Type 2 charstrings with a budget, since a few bytes of nested subroutine calls keep
/// FreeType busy for hours. One thread at a time.
class CharStringWalk {
 public:
  /// @param info what was read of the table, or null; borrowed.
  /// @param mostWork tokens or bytes that one glyph may take.
  CharStringWalk(const sfnt::TableRecord& cff, const FS_CFFInfo* info,
                 std::uint64_t mostWork = QXCommonNS::limits::kMostCharStringWork)
      : cff_(cff), info_(info), mostWork_(mostWork) {}

  /// Whether a glyph's charstring ends within the work of one glyph. What cannot be read is taken
  /// as empty. A glyph is walked at the first call.
  [[nodiscard]] bool isBounded(std::uint16_t glyph, const OpenFont& open);

 private:
  enum class Verdict : std::uint8_t { open, bounded, refused };

  void readStructures(const OpenFont& open);
  void readFontDicts(const cff::CffTable& table);
  [[nodiscard]] bool walk(std::uint16_t glyph, const OpenFont& open);
  [[nodiscard]] const FS_CFFStrings& localSubrs(std::uint16_t glyph) const;

  sfnt::TableRecord cff_;
  const FS_CFFInfo* info_;
  std::uint64_t mostWork_;
  FS_CFFInfo ownInfo_;  // where none was given
  bool structuresRead_ = false;
  FS_CFFIndexHeader charStrings_;
  FS_CFFStrings globalSubrs_;
  std::vector<FS_FDRange> fdSelect_;
  std::vector<cff::LocalSubrs> localSubrs_;  // one a Font DICT
  FileWindow window_;
  FS_CFFBytes bytes_;
  FS_CharStringTokens operands_;
  std::vector<Verdict> verdicts_;
};

}  // namespace QXFontService_NS::outline
