#include "layout/context/context_rules.h"

#include <algorithm>

#include "layout/table/graph_reader.h"

namespace QXFontService_NS::layout {
namespace {

template <class Item>
std::uint32_t sizeOf(const std::vector<Item>& pool) {
  return static_cast<std::uint32_t>(pool.size());
}

}  // namespace

Run readLookupRecords(GraphReader& reader, std::uint64_t at, unsigned count,
                      std::vector<TTI_SubstLookupRecord>& pool) {
  const std::size_t fitting = reader.countThatFits(at, count, 4);
  const Run none{sizeOf(pool), 0};
  if (!reader.charge(fitting * sizeof(TTI_SubstLookupRecord))) return none;
  for (std::size_t i = 0; i < fitting; ++i)
    pool.push_back({reader.u16(at + 4 * i), reader.u16(at + 4 * i + 2)});
  return {none.first, static_cast<std::uint32_t>(fitting)};
}

Run ContextRules::readRecords(GraphReader& reader, std::uint64_t at, unsigned count) {
  return readLookupRecords(reader, at, count, records_);
}

Run ContextRules::readValues(GraphReader& reader, std::uint64_t at, unsigned count) {
  const std::size_t fitting = reader.countThatFits(at, count, 2);
  const Run none{sizeOf(values_), 0};
  if (!reader.charge(fitting * 2)) return none;
  for (std::size_t i = 0; i < fitting; ++i) values_.push_back(reader.u16(at + 2 * i));
  return {none.first, static_cast<std::uint32_t>(fitting)};
}

ContextRule ContextRules::readRule(GraphReader& reader, std::uint64_t at) {
  const unsigned glyphCount = reader.u16(at);
  const unsigned inputCount = glyphCount < 2 ? 0 : glyphCount - 1;
  ContextRule rule;
  rule.input = readValues(reader, at + 4, inputCount);
  rule.records = readRecords(reader, at + 4 + 2 * inputCount, reader.u16(at + 2));
  return rule;
}

ContextRule ContextRules::readChainRule(GraphReader& reader, std::uint64_t at) {
  ContextRule rule;
  const unsigned backtrackCount = reader.u16(at);
  rule.backtrack = readValues(reader, at + 2, backtrackCount);
  at += 2 + 2 * std::uint64_t{backtrackCount};
  const unsigned glyphCount = reader.u16(at);
  const unsigned inputCount = glyphCount < 2 ? 0 : glyphCount - 1;
  rule.input = readValues(reader, at + 2, inputCount);
  at += 2 + 2 * std::uint64_t{inputCount};
  const unsigned lookaheadCount = reader.u16(at);
  rule.lookahead = readValues(reader, at + 2, lookaheadCount);
  at += 2 + 2 * std::uint64_t{lookaheadCount};
  rule.records = readRecords(reader, at + 2, reader.u16(at));
  return rule;
}

Run ContextRules::readSet(RuleReader readRuleAt, GraphReader& reader, std::uint64_t at) {
  const Run none{sizeOf(rules_), 0};
  const std::size_t count = reader.countThatFits(at + 2, reader.u16(at), 2);
  for (std::size_t i = 0; i < count && reader.charge(sizeof(ContextRule)); ++i)
    rules_.push_back((this->*readRuleAt)(reader, at + reader.u16(at + 2 + 2 * i)));
  return {none.first, sizeOf(rules_) - none.first};
}

void ContextRules::readSetsWith(RuleReader readRuleAt, GraphReader& reader, std::uint64_t base,
                                std::uint64_t offsets, unsigned setCount) {
  const std::size_t count = reader.countThatFits(offsets, setCount, 2);
  if (!reader.charge(count * sizeof(Run))) return;
  sets_.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    const unsigned offset = reader.u16(offsets + 2 * i);
    sets_.push_back(offset == 0 ? Run{} : readSet(readRuleAt, reader, base + offset));
  }
}

void ContextRules::readSets(GraphReader& reader, std::uint64_t base, std::uint64_t offsets,
                            unsigned setCount) {
  readSetsWith(&ContextRules::readRule, reader, base, offsets, setCount);
}

void ContextRules::readChainSets(GraphReader& reader, std::uint64_t base, std::uint64_t offsets,
                                 unsigned setCount) {
  readSetsWith(&ContextRules::readChainRule, reader, base, offsets, setCount);
}

void ContextRules::indexByFirstInput() {
  for (Run& set : sets_) {
    const auto first = rules_.begin() + set.first;
    const auto withInput = std::stable_partition(
        first, first + set.count, [](const ContextRule& rule) { return rule.input.count != 0; });
    std::stable_sort(first, withInput, [this](const ContextRule& a, const ContextRule& b) {
      return firstInput(a) < firstInput(b);
    });
    set.count = static_cast<std::uint32_t>(withInput - first);
  }
}

std::span<const ContextRule> ContextRules::rulesOf(int set) const {
  if (set < 0 || static_cast<std::size_t>(set) >= sets_.size()) return {};
  return sets_[static_cast<std::size_t>(set)].of(rules_);
}

std::span<const ContextRule> ContextRules::rulesOf(int set, int first) const {
  const std::span<const ContextRule> rules = rulesOf(set);
  const auto low = std::lower_bound(
      rules.begin(), rules.end(), first,
      [this](const ContextRule& rule, int sought) { return firstInput(rule) < sought; });
  const auto high = std::upper_bound(
      low, rules.end(), first,
      [this](int sought, const ContextRule& rule) { return sought < firstInput(rule); });
  return {low, high};
}

}  // namespace QXFontService_NS::layout
