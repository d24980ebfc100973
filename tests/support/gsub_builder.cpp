#include "support/gsub_builder.h"

#include "support/offset_table.h"

namespace qxtest {
namespace {

unsigned countOf(const auto& items) {
  return static_cast<unsigned>(items.size());
}

std::string glyphSets(const std::string& coverage, const std::vector<std::vector<unsigned>>& sets) {
  std::vector<std::string> tables;
  for (const auto& set : sets) tables.push_back(OffsetTable().u16(countOf(set)).u16s(set).str());
  return OffsetTable().u16(1).offset(coverage).countedOffsets(tables).str();
}

std::string ligatureSet(const std::vector<Ligature>& ligatures) {
  std::vector<std::string> tables;
  for (const Ligature& ligature : ligatures) {
    OffsetTable table;
    table.u16(ligature.glyph).u16(countOf(ligature.components) + 1).u16s(ligature.components);
    tables.push_back(table.str());
  }
  return OffsetTable().countedOffsets(tables).str();
}

}  // namespace

std::string singleSubst(const std::string& coverage, int delta) {
  return OffsetTable().u16(1).offset(coverage).u16(static_cast<unsigned>(delta) & 0xFFFF).str();
}

std::string singleSubst(const std::string& coverage, const std::vector<unsigned>& substitutes) {
  OffsetTable table;
  table.u16(2).offset(coverage).u16(countOf(substitutes)).u16s(substitutes);
  return table.str();
}

std::string multipleSubst(const std::string& coverage,
                          const std::vector<std::vector<unsigned>>& sequences) {
  return glyphSets(coverage, sequences);
}

std::string alternateSubst(const std::string& coverage,
                           const std::vector<std::vector<unsigned>>& alternates) {
  return glyphSets(coverage, alternates);
}

std::string ligatureSubst(const std::string& coverage,
                          const std::vector<std::vector<Ligature>>& sets) {
  std::vector<std::string> tables;
  for (const auto& set : sets) tables.push_back(ligatureSet(set));
  return OffsetTable().u16(1).offset(coverage).countedOffsets(tables).str();
}

std::string reverseChainSubst(const std::string& coverage,
                              const std::vector<std::string>& backtrack,
                              const std::vector<std::string>& lookahead,
                              const std::vector<unsigned>& substitutes) {
  OffsetTable table;
  table.u16(1).offset(coverage).countedOffsets(backtrack).countedOffsets(lookahead);
  table.u16(countOf(substitutes)).u16s(substitutes);
  return table.str();
}

}  // namespace qxtest
