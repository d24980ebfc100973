#include "support/context_builder.h"

#include "support/offset_table.h"

namespace qxtest {
namespace {

unsigned countOf(const auto& items) {
  return static_cast<unsigned>(items.size());
}

void add(OffsetTable& table, const LookupRecords& records) {
  for (const auto& [sequenceIndex, lookup] : records) table.u16(sequenceIndex).u16(lookup);
}

std::string bytesOf(const Rule& rule) {
  OffsetTable table;
  table.u16(countOf(rule.input) + 1).u16(countOf(rule.records)).u16s(rule.input);
  add(table, rule.records);
  return table.str();
}

std::string bytesOf(const ChainRule& rule) {
  OffsetTable table;
  table.u16(countOf(rule.backtrack)).u16s(rule.backtrack);
  table.u16(countOf(rule.input) + 1).u16s(rule.input);
  table.u16(countOf(rule.lookahead)).u16s(rule.lookahead);
  table.u16(countOf(rule.records));
  add(table, rule.records);
  return table.str();
}

template <class AnyRule>
std::vector<std::string> bytesOfSets(const std::vector<std::vector<AnyRule>>& sets) {
  std::vector<std::string> tables;
  for (const auto& set : sets) {
    std::vector<std::string> rules;
    for (const AnyRule& rule : set) rules.push_back(bytesOf(rule));
    tables.push_back(rules.empty() ? std::string() : OffsetTable().countedOffsets(rules).str());
  }
  return tables;
}

}  // namespace

std::string context1(const std::string& coverage, const std::vector<std::vector<Rule>>& sets) {
  return OffsetTable().u16(1).offset(coverage).countedOffsets(bytesOfSets(sets)).str();
}

std::string context2(const std::string& coverage, const std::string& classDef,
                     const std::vector<std::vector<Rule>>& sets) {
  OffsetTable table;
  table.u16(2).offset(coverage).offset(classDef).countedOffsets(bytesOfSets(sets));
  return table.str();
}

std::string context3(const std::vector<std::string>& input, const LookupRecords& records) {
  OffsetTable table;
  table.u16(3).u16(countOf(input)).u16(countOf(records)).offsets(input);
  add(table, records);
  return table.str();
}

std::string chainContext1(const std::string& coverage,
                          const std::vector<std::vector<ChainRule>>& sets) {
  return OffsetTable().u16(1).offset(coverage).countedOffsets(bytesOfSets(sets)).str();
}

std::string chainContext2(const std::string& coverage, const std::string& backtrackClasses,
                          const std::string& inputClasses, const std::string& lookaheadClasses,
                          const std::vector<std::vector<ChainRule>>& sets) {
  OffsetTable table;
  table.u16(2).offset(coverage).offset(backtrackClasses).offset(inputClasses);
  table.offset(lookaheadClasses).countedOffsets(bytesOfSets(sets));
  return table.str();
}

std::string chainContext3(const std::vector<std::string>& backtrack,
                          const std::vector<std::string>& input,
                          const std::vector<std::string>& lookahead, const LookupRecords& records) {
  OffsetTable table;
  table.u16(3).countedOffsets(backtrack).countedOffsets(input).countedOffsets(lookahead);
  table.u16(countOf(records));
  add(table, records);
  return table.str();
}

}  // namespace qxtest
