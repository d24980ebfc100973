#include <unordered_map>

#include "layout/gpos/pair_pos.h"
#include "layout/table/graph_reader.h"

namespace QXFontService_NS {

FS_LayoutTables::GPOS_PairPosFormat1::GPOS_PairPosFormat1(layout::GraphReader& reader,
                                                          std::uint64_t at)
    : TTI_SubTable(layout::readCoverage(reader, at, reader.u16(at + 2))),
      values_(reader.u16(at + 4), reader.u16(at + 6)) {
  if (values_.move()) readPairSets(reader, at);
}

/// Reads the sets; those at one place once, as fonts share them.
void FS_LayoutTables::GPOS_PairPosFormat1::readPairSets(layout::GraphReader& reader,
                                                        std::uint64_t at) {
  const std::size_t count = reader.countThatFits(at + 10, reader.u16(at + 8), 2);
  if (!reader.charge(count * sizeof(PairSet))) return;
  std::unordered_map<unsigned, PairSet> known{{0, PairSet()}};
  sets_.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    const unsigned offset = reader.u16(at + 10 + 2 * i);
    const auto [set, isNew] = known.try_emplace(offset);
    if (isNew) set->second = readPairSet(reader, at + offset);
    sets_.push_back(set->second);
  }
}

FS_LayoutTables::GPOS_PairPosFormat1::PairSet FS_LayoutTables::GPOS_PairPosFormat1::readPairSet(
    layout::GraphReader& reader, std::uint64_t at) {
  PairSet set;
  set.at = records_.size();
  set.count = records_.append(reader, at + 2, reader.u16(at), recordSize());
  set.ascending = isAscending(set);
  return set;
}

unsigned short FS_LayoutTables::GPOS_PairPosFormat1::secondGlyph(const PairSet& set,
                                                                 std::size_t i) const {
  return records_.view().u16(set.at + i * recordSize());
}

bool FS_LayoutTables::GPOS_PairPosFormat1::isAscending(const PairSet& set) const {
  for (std::size_t i = 1; i < set.count; ++i)
    if (secondGlyph(set, i) <= secondGlyph(set, i - 1)) return false;
  return true;
}

/// The number of the first record with this second glyph. A set out of order is walked, since the
/// first record in it counts.
std::size_t FS_LayoutTables::GPOS_PairPosFormat1::find(const PairSet& set,
                                                       unsigned short glyph) const {
  if (set.ascending) return findByHalving(set, glyph);
  for (std::size_t i = 0; i < set.count; ++i)
    if (secondGlyph(set, i) == glyph) return i;
  return kNone;
}

std::size_t FS_LayoutTables::GPOS_PairPosFormat1::findByHalving(const PairSet& set,
                                                                unsigned short glyph) const {
  std::size_t low = 0;
  std::size_t high = set.count;
  while (low < high) {
    const std::size_t mid = (low + high) / 2;
    const unsigned short second = secondGlyph(set, mid);
    if (second == glyph) return mid;
    if (second < glyph) {
      low = mid + 1;
    } else {
      high = mid;
    }
  }
  return kNone;
}

bool FS_LayoutTables::GPOS_PairPosFormat1::position(const FS_LayoutTables& font,
                                                    const TTI_LookupList&, const TTI_Lookup& lookup,
                                                    layout::PositionRun& glyphs, int& position,
                                                    bool) const {
  const int index = coverageIndexOf(glyphs[position].getGlyphID());
  if (index < 0 || static_cast<std::size_t>(index) >= sets_.size()) return false;
  const int second = layout::secondOfPair(font, lookup, glyphs, position);
  if (second < 0) return false;
  const PairSet& set = sets_[static_cast<std::size_t>(index)];
  if (!set.ascending && !glyphs.spend(static_cast<int>(set.count))) return false;
  const std::size_t found = find(set, glyphs[second].getGlyphID());
  if (found == kNone) return false;
  const std::size_t valuesAt = set.at + found * recordSize() + 2;
  values_.apply(glyphs, position, second, records_.view(), valuesAt);
  values_.moveOn(glyphs, position, second);
  return true;
}

}  // namespace QXFontService_NS
