#include "layout/table/graph_reader.h"

#include <algorithm>

#include "layout/guard/limits.h"
#include "layout/guard/spent_budgets.h"

namespace QXFontService_NS::layout {
namespace {

std::int64_t budgetOf(const QXCommonNS::bytes::ByteView& table, std::int64_t atLeast,
                      std::int64_t perByte) {
  return atLeast + perByte * static_cast<std::int64_t>(table.size());
}

}  // namespace

GraphReader::GraphReader(const FS_LayoutTables& font, QXCommonNS::bytes::ByteView table)
    : font_(font),
      table_(table),
      left_(budgetOf(table, kMostGraphBytes, kGraphBytesPerTableByte)),
      startStepsLeft_(budgetOf(table, kMostStartSteps, kStartStepsPerTableByte)),
      langSysEntriesLeft_(kMostLangSysEntriesOfTable) {}

std::size_t GraphReader::countThatFits(std::uint64_t at, std::size_t count,
                                       std::size_t size) const {
  return table_.slice(at, std::uint64_t{count} * size).size() / size;
}

std::vector<unsigned short> GraphReader::words(std::uint64_t at, std::size_t count) {
  const std::size_t fitting = countThatFits(at, count, 2);
  if (!charge(fitting * 2)) return {};
  std::vector<unsigned short> words(fitting);
  for (std::size_t i = 0; i < fitting; ++i) words[i] = table_.u16(at + 2 * i);
  return words;
}

bool GraphReader::charge(std::size_t bytes) {
  if (spent()) return false;
  left_ -= static_cast<std::int64_t>(bytes);
  if (spent()) noteSpent(spentBudgets().graph);
  return !spent();
}

bool GraphReader::chargeLangSysEntry() {
  if (langSysEntriesLeft_ == 0) noteSpent(spentBudgets().langSys);
  return langSysEntriesLeft_-- > 0;
}

bool GraphReader::chargeStartSteps(std::size_t steps) {
  startStepsLeft_ -= std::min(startStepsLeft_ + 1, static_cast<std::int64_t>(steps));
  return startStepsLeft_ >= 0;
}

}  // namespace QXFontService_NS::layout
