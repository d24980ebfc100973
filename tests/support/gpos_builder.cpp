#include "support/gpos_builder.h"

#include "support/offset_table.h"

namespace qxtest {
namespace {

unsigned countOf(const auto& items) {
  return static_cast<unsigned>(items.size());
}

unsigned wordOf(int value) {
  return static_cast<unsigned>(value) & 0xFFFF;
}

void add(OffsetTable& table, const ValueWords& words) {
  for (const int word : words) table.u16(wordOf(word));
}

std::string pairSet(const std::vector<PairRecord>& records) {
  OffsetTable table;
  table.u16(countOf(records));
  for (const PairRecord& record : records) {
    table.u16(record.second);
    add(table, record.value1);
    add(table, record.value2);
  }
  return table.str();
}

std::string markArray(const std::vector<MarkRecord>& marks) {
  OffsetTable table;
  table.u16(countOf(marks));
  for (const MarkRecord& mark : marks) table.u16(mark.markClass).offset(mark.anchor);
  return table.str();
}

/// A count of rows, and the offsets of all their anchors: BaseArray, Mark2Array, LigatureAttach.
std::string anchorRows(const std::vector<AnchorRow>& rows) {
  OffsetTable table;
  table.u16(countOf(rows));
  for (const AnchorRow& row : rows) table.offsets(row);
  return table.str();
}

std::string attachment(const std::string& markCoverage, const std::string& coverage,
                       unsigned classCount, const std::vector<MarkRecord>& marks,
                       const std::string& array) {
  OffsetTable table;
  table.u16(1).offset(markCoverage).offset(coverage).u16(classCount);
  return table.offset(markArray(marks)).offset(array).str();
}

}  // namespace

std::string anchorTable(int x, int y, unsigned format) {
  constexpr unsigned kPoint = 7;
  const std::string device = OffsetTable().u16(12).u16(12).u16(1).u16(0x4000).str();
  OffsetTable table;
  table.u16(format).u16(wordOf(x)).u16(wordOf(y));
  if (format == 2) table.u16(kPoint);
  if (format == 3) table.offset(device).offset(device);
  return table.str();
}

std::string singlePos1(const std::string& coverage, unsigned format, const ValueWords& value) {
  OffsetTable table;
  table.u16(1).offset(coverage).u16(format);
  add(table, value);
  return table.str();
}

std::string singlePos2(const std::string& coverage, unsigned format,
                       const std::vector<ValueWords>& values) {
  OffsetTable table;
  table.u16(2).offset(coverage).u16(format).u16(countOf(values));
  for (const ValueWords& value : values) add(table, value);
  return table.str();
}

std::string pairPos1(const std::string& coverage, unsigned format1, unsigned format2,
                     const std::vector<std::vector<PairRecord>>& sets) {
  std::vector<std::string> tables;
  for (const auto& set : sets) tables.push_back(pairSet(set));
  OffsetTable table;
  return table.u16(1).offset(coverage).u16(format1).u16(format2).countedOffsets(tables).str();
}

std::string pairPos2(const std::string& coverage, unsigned format1, unsigned format2,
                     const std::string& classDef1, const std::string& classDef2,
                     const std::vector<std::vector<ClassPair>>& rows) {
  OffsetTable table;
  table.u16(2).offset(coverage).u16(format1).u16(format2).offset(classDef1).offset(classDef2);
  table.u16(countOf(rows)).u16(rows.empty() ? 0 : countOf(rows[0]));
  for (const auto& row : rows) {
    for (const ClassPair& pair : row) {
      add(table, pair.value1);
      add(table, pair.value2);
    }
  }
  return table.str();
}

std::string cursivePos(const std::string& coverage, const std::vector<Joints>& joints) {
  OffsetTable table;
  table.u16(1).offset(coverage).u16(countOf(joints));
  for (const Joints& each : joints) table.offset(each.entry).offset(each.exit);
  return table.str();
}

std::string markPos(const std::string& markCoverage, const std::string& baseCoverage,
                    unsigned classCount, const std::vector<MarkRecord>& marks,
                    const std::vector<AnchorRow>& bases) {
  return attachment(markCoverage, baseCoverage, classCount, marks, anchorRows(bases));
}

std::string markLigPos(const std::string& markCoverage, const std::string& ligatureCoverage,
                       unsigned classCount, const std::vector<MarkRecord>& marks,
                       const std::vector<std::vector<AnchorRow>>& ligatures) {
  std::vector<std::string> tables;
  for (const auto& components : ligatures) tables.push_back(anchorRows(components));
  return attachment(markCoverage, ligatureCoverage, classCount, marks,
                    OffsetTable().countedOffsets(tables).str());
}

}  // namespace qxtest
