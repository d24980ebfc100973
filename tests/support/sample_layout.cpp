#include "support/sample_layout.h"

#include <utility>
#include <vector>

#include "support/class_def_builder.h"
#include "support/context_builder.h"
#include "support/coverage_builder.h"
#include "support/gpos_builder.h"
#include "support/gsub_builder.h"
#include "support/layout_table_builder.h"

namespace qxtest {
namespace {

std::string covered(unsigned glyph) {
  return coverage({glyph});
}

}  // namespace

std::string sampleSubstitutions() {
  const std::string classes = classDef(1, {1, 2});
  const std::vector<std::pair<unsigned, std::string>> lookups = {
      {1, singleSubst(covered(1), 1)},
      {1, singleSubst(coverageOfRanges({{2, 3, 0}}), std::vector<unsigned>{4, 1})},
      {2, multipleSubst(coverage({1}), {{2, 50, 3}})},
      {3, alternateSubst(coverage({1}), {{2, 3}})},
      {4, ligatureSubst(coverage({1}), {{{70, {2, 3}}, {71, {2}}}})},
      {5, context1(coverage({1}), {{{{2}, {{0, 0}}}}})},
      {5, context2(coverage({1}), classes, {{}, {{{2}, {{0, 0}, {1, 2}}}}})},
      {5, context3({covered(1), covered(2)}, {{0, 2}, {1, 4}})},
      {6, chainContext1(coverage({2}), {{{{1}, {3}, {3}, {{0, 1}}}}})},
      {6,
       chainContext2(coverage({1}), classes, classes, classes, {{}, {{{}, {2}, {2}, {{0, 7}}}}})},
      {6, chainContext3({covered(3)}, {covered(1)}, {covered(2)}, {{0, 4}, {0, 8}})},
      {8, reverseChainSubst(coverage({2}), {covered(1)}, {covered(3)}, {4})},
      {7, extensionSubTable(4, ligatureSubst(coverage({3}), {{{72, {1}}}}))}};
  LayoutTableBuilder table;
  for (const auto& [type, subTable] : lookups) table.onlyLookup("test", type, 8, {subTable});
  return table.str();
}

std::string samplePositions() {
  const std::string classes = classDef(1, {1, 0, 1});
  const std::string anchor = anchorTable(20, 30);
  const std::vector<MarkRecord> marks{{0, anchor}, {1, anchorTable(5, 6, 2)}};
  const std::vector<ClassPair> row{{{10}, {1, 2}}, {{20}, {3, 4}}};
  const std::vector<std::pair<unsigned, std::string>> lookups = {
      {1, singlePos1(coverage({1, 2}), 0x15, {10, 20, 0})},
      {1, singlePos2(coverageOfRanges({{2, 3, 0}}), 0x03, {{1, 2}, {3, 4}})},
      {2, pairPos1(coverage({1, 2}), 4, 1, {{{2, {-20}, {5}}, {3, {1}, {2}}}, {{1, {7}, {8}}}})},
      {2, pairPos2(coverage({1, 3}), 4, 3, classes, classes, {row, row})},
      {3, cursivePos(coverage({1, 2, 3}), {{anchor, anchor}, {anchor, ""}, {"", anchor}})},
      {4, markPos(coverage({50, 51}), coverage({1, 2}), 2, marks,
                  {{anchor, anchorTable(1, 1, 3)}, {"", anchor}})},
      {5, markLigPos(coverage({50, 51}), coverage({70}), 2, marks,
                     {{{anchor, anchor}, {anchor, ""}}})},
      {6, markPos(coverage({51}), coverage({50}), 1, {{0, anchor}}, {{anchor}})},
      {7, context2(coverage({1}), classes, {{{{1}, {{0, 2}}}}, {{{0}, {{0, 0}, {1, 3}}}}})},
      {7, context3({covered(1), covered(2)}, {{0, 0}, {1, 8}})},
      {8, chainContext1(coverage({2}), {{{{1}, {}, {3}, {{0, 0}}}}})},
      {8, chainContext2(coverage({2}), classes, classes, classes, {{{{1}, {}, {1}, {{0, 1}}}}})},
      {8, chainContext3({covered(1)}, {covered(2)}, {covered(3)}, {{0, 0}, {0, 12}})},
      {9, extensionSubTable(1, singlePos1(covered(3), 0x01, {9}))}};
  LayoutTableBuilder table;
  for (const auto& [type, subTable] : lookups)
    table.onlyLookup("test", type, type == 3 ? 9 : type == 6 ? 0 : 8, {subTable});
  return table.str();
}

}  // namespace qxtest
