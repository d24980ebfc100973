#pragma once

#include <string>
#include <vector>

namespace qxtest {

/// An OpenType Anchor table. Format 2 gets contour point 7, format 3 two device tables.
std::string anchorTable(int x, int y, unsigned format = 1);

/// The words of a ValueRecord, in the order of its format's bits; offsets of device tables as they
/// are to stand.
using ValueWords = std::vector<int>;

/// A record of a PairSet.
struct PairRecord {
  unsigned second;
  ValueWords value1;
  ValueWords value2;
};
/// A record of a pair of classes.
struct ClassPair {
  ValueWords value1;
  ValueWords value2;
};
/// Entry and exit of a glyph, as Anchor tables; an empty one is left out.
struct Joints {
  std::string entry;
  std::string exit;
};
/// A mark with its Anchor table.
struct MarkRecord {
  unsigned markClass;
  std::string anchor;
};
/// Anchor tables by mark class; an empty one is left out.
using AnchorRow = std::vector<std::string>;

// Subtables of OpenType `GPOS` lookups; contextual ones stand in `context_builder.h`. Records are
// in the order of the coverage.
std::string singlePos1(const std::string& coverage, unsigned format, const ValueWords& value);
std::string singlePos2(const std::string& coverage, unsigned format,
                       const std::vector<ValueWords>& values);
std::string pairPos1(const std::string& coverage, unsigned format1, unsigned format2,
                     const std::vector<std::vector<PairRecord>>& sets);
/// `rows`: by first class, then by second class.
std::string pairPos2(const std::string& coverage, unsigned format1, unsigned format2,
                     const std::string& classDef1, const std::string& classDef2,
                     const std::vector<std::vector<ClassPair>>& rows);
std::string cursivePos(const std::string& coverage, const std::vector<Joints>& joints);
/// Marks on bases, or on marks: both have one form.
std::string markPos(const std::string& markCoverage, const std::string& baseCoverage,
                    unsigned classCount, const std::vector<MarkRecord>& marks,
                    const std::vector<AnchorRow>& bases);
/// `ligatures`: by ligature, then by component.
std::string markLigPos(const std::string& markCoverage, const std::string& ligatureCoverage,
                       unsigned classCount, const std::vector<MarkRecord>& marks,
                       const std::vector<std::vector<AnchorRow>>& ligatures);

}  // namespace qxtest
