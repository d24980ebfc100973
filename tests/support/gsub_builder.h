#pragma once

#include <string>
#include <vector>

namespace qxtest {

/// A ligature of OpenType `GSUB`: `components` hold the glyphs from the second on.
struct Ligature {
  unsigned glyph;
  std::vector<unsigned> components;
};

// Subtables of OpenType `GSUB` lookups; contextual ones stand in `context_builder.h`. Sets are in
// the order of the coverage.
std::string singleSubst(const std::string& coverage, int delta);
std::string singleSubst(const std::string& coverage, const std::vector<unsigned>& substitutes);
std::string multipleSubst(const std::string& coverage,
                          const std::vector<std::vector<unsigned>>& sequences);
std::string alternateSubst(const std::string& coverage,
                           const std::vector<std::vector<unsigned>>& alternates);
std::string ligatureSubst(const std::string& coverage,
                          const std::vector<std::vector<Ligature>>& sets);
std::string reverseChainSubst(const std::string& coverage,
                              const std::vector<std::string>& backtrack,
                              const std::vector<std::string>& lookahead,
                              const std::vector<unsigned>& substitutes);

}  // namespace qxtest
