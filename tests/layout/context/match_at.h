#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "layout/glyph_runs.h"
#include "support/context_builder.h"
#include "support/coverage_builder.h"
#include "support/layout_table_builder.h"

namespace qxtest {

/// What `matchContext` of the only subtable answered.
struct Match {
  int answer = 0;
  LookupRecords records;  ///< as given, also without a match
  Ids skipped;
  bool operator==(const Match&) const = default;
};

inline void PrintTo(const Match& match, std::ostream* out) {
  *out << match.answer << " records:";
  for (const auto& record : match.records) *out << ' ' << record.first << ':' << record.second;
  *out << " skipped ";
  print(match.skipped, *out);
}

inline Match matchAt(unsigned type, const std::string& subTable, const Ids& ids, int position,
                     unsigned flag = 0) {
  namespace layout = QXFontService_NS::layout;
  LayoutTableBuilder table;
  table.lookup(type, flag, {subTable});
  const TestFont font(table.str(), gdefTable(testClasses()));
  const layout::SubTablePtr& read = font.gsub->lookupList.lookups.at(0).subTables.at(0);
  const auto glyphs = glyphRun(font, ids);
  auto meter = layout::WorkMeter::forStep(glyphs.size());
  std::span<const layout::TTI_SubstLookupRecord> records;
  Match match;
  match.answer = read->matchContext(font, records, {glyphs, meter}, position, flag, match.skipped);
  for (const auto& record : records)
    match.records.emplace_back(record.sequenceIndex, record.lookupListIndex);
  return match;
}

inline constexpr unsigned kIgnoreMarks = 8;

}  // namespace qxtest
