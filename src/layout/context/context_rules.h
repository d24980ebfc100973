#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "layout/table/sub_table.h"

namespace QXFontService_NS::layout {

class GraphReader;

/// Part of a pool: `count` items from `first` on.
struct Run {
  std::uint32_t first = 0;
  std::uint32_t count = 0;

  template <class Item>
  [[nodiscard]] std::span<const Item> of(const std::vector<Item>& pool) const {
    return std::span(pool).subspan(first, count);
  }
};

/// A rule of a contextual subtable in format 1 or 2: values are glyph ids or classes. A rule
/// without chaining has neither backtrack nor lookahead.
struct ContextRule {
  Run backtrack;  ///< nearest glyph first
  Run input;      ///< from the second glyph on
  Run lookahead;
  Run records;
};

/// The rule sets of a contextual subtable in format 1 or 2. All rules, values and records of a
/// subtable stand in three arrays, since a font has tens of thousands of small rules.
class ContextRules {
 public:
  /// Reads `setCount` sets, whose offsets stand at `offsets` and count from `base`, where the
  /// subtable begins. An offset of 0 is an empty set.
  void readSets(GraphReader& reader, std::uint64_t base, std::uint64_t offsets, unsigned setCount);
  void readChainSets(GraphReader& reader, std::uint64_t base, std::uint64_t offsets,
                     unsigned setCount);
  /// Orders the rules of each set by their first input value, equal ones as they stood, and drops
  /// those without one. `rulesOf(set, first)` finds its rules then.
  void indexByFirstInput();

  /// The rules of a set; none where there is no such set.
  [[nodiscard]] std::span<const ContextRule> rulesOf(int set) const;
  /// The rules of a set whose first input value is `first`. Needs `indexByFirstInput`.
  [[nodiscard]] std::span<const ContextRule> rulesOf(int set, int first) const;

  [[nodiscard]] std::span<const unsigned short> values(Run run) const { return run.of(values_); }
  [[nodiscard]] std::span<const TTI_SubstLookupRecord> records(const ContextRule& rule) const {
    return rule.records.of(records_);
  }

 private:
  using RuleReader = ContextRule (ContextRules::*)(GraphReader&, std::uint64_t);

  void readSetsWith(RuleReader readRule, GraphReader& reader, std::uint64_t base,
                    std::uint64_t offsets, unsigned setCount);
  Run readSet(RuleReader readRule, GraphReader& reader, std::uint64_t at);
  ContextRule readRule(GraphReader& reader, std::uint64_t at);
  ContextRule readChainRule(GraphReader& reader, std::uint64_t at);
  Run readValues(GraphReader& reader, std::uint64_t at, unsigned count);
  Run readRecords(GraphReader& reader, std::uint64_t at, unsigned count);
  [[nodiscard]] int firstInput(const ContextRule& rule) const { return values_[rule.input.first]; }

  std::vector<Run> sets_;
  std::vector<ContextRule> rules_;
  std::vector<unsigned short> values_;
  std::vector<TTI_SubstLookupRecord> records_;
};

/// Appends the records at `at` to `pool`, as many of `count` as are there.
Run readLookupRecords(GraphReader& reader, std::uint64_t at, unsigned count,
                      std::vector<TTI_SubstLookupRecord>& pool);

}  // namespace QXFontService_NS::layout
