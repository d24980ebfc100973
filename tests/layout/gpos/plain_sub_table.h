#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "layout/gpos/position_runs.h"

namespace qxtest::gpos {

struct Point {
  int x;
  int y;
};
using MaybePoint = std::optional<Point>;
using PointRow = std::vector<MaybePoint>;

/// A subtable as a test thinks of it, from which its bytes are written.
struct PlainSubTable {
  unsigned type = 1;
  unsigned format = 1;
  std::vector<unsigned> covered;  ///< of the glyph at the position
  std::vector<unsigned> second;   ///< bases, ligatures, marks that carry marks
  unsigned format1 = 0;
  unsigned format2 = 0;
  std::vector<ValueWords> values;
  std::vector<std::vector<PairRecord>> sets;
  std::map<unsigned, unsigned> classes1;
  std::map<unsigned, unsigned> classes2;
  std::vector<std::vector<ClassPair>> rows;
  std::vector<std::pair<MaybePoint, MaybePoint>> joints;  ///< entry, exit
  unsigned classCount = 0;
  std::vector<std::pair<unsigned, MaybePoint>> marks;  ///< class, anchor
  std::vector<std::vector<PointRow>> ligatures;        ///< bases are ligatures of one component
  std::string context;                                 ///< bytes, for types 7 and 8

  [[nodiscard]] std::string bytes() const {
    switch (type) {
      case 1:
        return format == 1 ? singlePos1(coverage(covered), format1, values.at(0))
                           : singlePos2(coverage(covered), format1, values);
      case 2:
        return format == 1 ? pairPos1(coverage(covered), format1, format2, sets)
                           : pairPos2(coverage(covered), format1, format2, classBytes(classes1),
                                      classBytes(classes2), rows);
      case 3:
        return cursivePos(coverage(covered), jointBytes());
      case 4:
      case 6:
        return markPos(coverage(covered), coverage(second), classCount, markBytes(), baseBytes());
      case 5:
        return markLigPos(coverage(covered), coverage(second), classCount, markBytes(),
                          ligatureBytes());
      default:
        return context;
    }
  }

 private:
  static std::string classBytes(const std::map<unsigned, unsigned>& classes) {
    std::vector<std::array<unsigned, 3>> ranges;
    for (const auto& [glyph, cls] : classes) ranges.push_back({glyph, glyph, cls});
    return classDefOfRanges(ranges);
  }
  static std::string anchorBytes(const MaybePoint& point) {
    return point ? anchorTable(point->x, point->y) : std::string();
  }
  static AnchorRow rowBytes(const PointRow& row) {
    AnchorRow bytes;
    for (const MaybePoint& point : row) bytes.push_back(anchorBytes(point));
    return bytes;
  }
  [[nodiscard]] std::vector<Joints> jointBytes() const {
    std::vector<Joints> bytes;
    for (const auto& [entry, exit] : joints)
      bytes.push_back({anchorBytes(entry), anchorBytes(exit)});
    return bytes;
  }
  [[nodiscard]] std::vector<MarkRecord> markBytes() const {
    std::vector<MarkRecord> bytes;
    for (const auto& [cls, point] : marks) bytes.push_back({cls, anchorBytes(point)});
    return bytes;
  }
  [[nodiscard]] std::vector<AnchorRow> baseBytes() const {
    std::vector<AnchorRow> bytes;
    for (const auto& components : ligatures) bytes.push_back(rowBytes(components.at(0)));
    return bytes;
  }
  [[nodiscard]] std::vector<std::vector<AnchorRow>> ligatureBytes() const {
    std::vector<std::vector<AnchorRow>> bytes;
    for (const auto& components : ligatures) {
      bytes.emplace_back();
      for (const PointRow& row : components) bytes.back().push_back(rowBytes(row));
    }
    return bytes;
  }
};

struct PlainLookup {
  unsigned flag = 0;
  std::vector<PlainSubTable> subTables;
};

}  // namespace qxtest::gpos
