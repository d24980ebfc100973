#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace qxtest {

/// A segment of a `cmap` format 4 subtable: codes `start` to `end`. With `glyphs` the ids come from
/// the glyph array (with `idDelta` added by the reader), else from `idDelta` alone.
struct CmapSegment {
  unsigned start = 0;
  unsigned end = 0;
  int idDelta = 0;
  std::vector<unsigned> glyphs = {};
};

/// A group of a `cmap` format 12 subtable.
struct CmapGroup {
  std::uint32_t start = 0;
  std::uint32_t end = 0;
  std::uint32_t glyph = 0;
};

/// A sub-header of a `cmap` format 2 subtable and the high bytes that lead to it; the sub-header
/// without high bytes must be the first, as single-byte codes use it.
struct CmapSubHeader {
  std::vector<unsigned> highBytes;
  unsigned firstCode = 0;
  int idDelta = 0;
  std::vector<unsigned> glyphs = {};  ///< one word an entry, 0 for a missing glyph
};

/// The sequences of one variation selector of a `cmap` format 14 subtable.
struct CmapSelector {
  struct Range {
    unsigned start;
    unsigned additional;
  };
  unsigned selector = 0;
  std::vector<Range> defaults = {};
  std::map<unsigned, unsigned> own = {};  ///< code to glyph
};

/// Writes `cmap` tables. Subtables are made by the static functions, damaged if need be, and added
/// with their records: `CmapBuilder().add(3, 1, CmapBuilder::format4({{65, 90, 0}})).build()`.
class CmapBuilder {
 public:
  /// Adds an encoding record and its subtable, which stands behind those added before.
  CmapBuilder& add(unsigned platform, unsigned encoding, const std::string& subtable);
  /// Adds a record that points to the subtable of the record `earlier` (from 0).
  CmapBuilder& share(unsigned platform, unsigned encoding, std::size_t earlier);
  /// Adds a record with an offset of its own.
  CmapBuilder& addOffset(unsigned platform, unsigned encoding, std::uint32_t offset);

  [[nodiscard]] std::string build() const;

  static std::string format0(const std::map<unsigned, unsigned>& glyphs);
  static std::string format2(const std::vector<CmapSubHeader>& subHeaders);
  static std::string format4(const std::vector<CmapSegment>& segments, unsigned padWord = 0);
  static std::string format12(const std::vector<CmapGroup>& groups);
  static std::string format14(const std::vector<CmapSelector>& selectors);
  /// A subtable of a trimmed format that few readers know: 6.
  static std::string format6(unsigned first, const std::vector<unsigned>& glyphs);

 private:
  struct Record {
    unsigned platform;
    unsigned encoding;
    bool isAbsolute;
    std::uint32_t offset;  ///< from the table's start if absolute, else among the subtables
  };

  std::vector<Record> records_;
  std::string subtables_;
};

}  // namespace qxtest
