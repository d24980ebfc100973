#pragma once

#include <string>
#include <utility>
#include <vector>

namespace qxtest {

/// (sequence index, lookup index) of a rule.
using LookupRecords = std::vector<std::pair<unsigned, unsigned>>;

/// A rule of OpenType Sequence Context formats 1 and 2. `input` holds glyphs or classes from the
/// second glyph on.
struct Rule {
  std::vector<unsigned> input;
  LookupRecords records;
};
/// A rule of OpenType Chained Sequence Context formats 1 and 2.
struct ChainRule {
  std::vector<unsigned> backtrack;  ///< nearest glyph first
  std::vector<unsigned> input;
  std::vector<unsigned> lookahead;
  LookupRecords records;
};

// Subtables; `GSUB` and `GPOS` have the same. A set without rules gets an offset of 0.
std::string context1(const std::string& coverage, const std::vector<std::vector<Rule>>& sets);
std::string context2(const std::string& coverage, const std::string& classDef,
                     const std::vector<std::vector<Rule>>& sets);
std::string context3(const std::vector<std::string>& input, const LookupRecords& records);
std::string chainContext1(const std::string& coverage,
                          const std::vector<std::vector<ChainRule>>& sets);
std::string chainContext2(const std::string& coverage, const std::string& backtrackClasses,
                          const std::string& inputClasses, const std::string& lookaheadClasses,
                          const std::vector<std::vector<ChainRule>>& sets);
std::string chainContext3(const std::vector<std::string>& backtrack,
                          const std::vector<std::string>& input,
                          const std::vector<std::string>& lookahead, const LookupRecords& records);

}  // namespace qxtest
