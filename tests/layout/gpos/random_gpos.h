#pragma once

#include <random>
#include <string>
#include <vector>

#include "layout/gpos/plain_sub_table.h"

namespace qxtest::gpos {

/// Draws lookups and runs over few glyphs, so that rules often meet. A lookup runs only earlier
/// ones, so that nesting ends.
class RandomGpos {
 public:
  explicit RandomGpos(unsigned seed) : random_(seed) {}

  unsigned below(unsigned end) { return static_cast<unsigned>(random_() % end); }
  bool oneIn(unsigned of) { return below(of) == 0; }

  std::vector<PlainLookup> lookups(unsigned count) {
    std::vector<PlainLookup> made;
    for (known_ = 0; known_ < count; ++known_) {
      PlainLookup lookup;
      lookup.flag = flag();
      const unsigned type = 1 + below(8);
      for (unsigned i = 0; i <= below(3); ++i)
        lookup.subTables.push_back(subTable(oneIn(6) ? 1 + below(8) : type));
      made.push_back(lookup);
    }
    return made;
  }

  /// The lookups as a table, with one feature each; all are extensions, since their subtables are
  /// of any type.
  static std::string tableOf(const std::vector<PlainLookup>& lookups) {
    LayoutTableBuilder table;
    for (const PlainLookup& lookup : lookups) {
      std::vector<std::string> subTables;
      for (const PlainSubTable& each : lookup.subTables)
        subTables.push_back(extensionSubTable(each.type, each.bytes()));
      table.onlyLookup("test", 9, lookup.flag, subTables);
    }
    return table.str();
  }

  Glyphs run(unsigned longest) {
    Glyphs glyphs;
    const bool absolutely = oneIn(2);
    for (unsigned i = below(longest + 1); i > 0; --i) glyphs.push_back(record(absolutely));
    return glyphs;
  }

 private:
  static constexpr unsigned kGlyphs[] = {1, 2, 3, 50, 51, 52, 60, 70, 71, 90};

  unsigned glyph() { return kGlyphs[oneIn(2) ? below(2) : below(10)]; }
  unsigned mark() { return 50 + below(3); }
  unsigned flag() {
    constexpr unsigned kFlags[] = {0, 0, 0x0008, 0x0009, 0x0002, 0x0004, 0x0100, 0x0208};
    return kFlags[below(8)];
  }
  int number() { return static_cast<int>(below(200)) - 100; }
  MaybePoint point() {
    if (oneIn(6)) return std::nullopt;
    return Point{number(), number()};
  }
  std::vector<unsigned> some(unsigned first, unsigned count) {
    std::vector<unsigned> drawn;
    for (unsigned i = first; i < first + count; ++i)
      if (!oneIn(3)) drawn.push_back(kGlyphs[i]);
    return drawn;
  }
  std::vector<unsigned> anyGlyphs() { return some(0, 10); }
  std::vector<unsigned> marks() { return some(3, 3); }

  GlyphIDPosition record(bool absolutely) {
    constexpr int kFlags[] = {kSeesZeroWidth, kPassesComponents, kByComponent, kOutside};
    GlyphIDPosition made = placed(static_cast<int>(oneIn(3) ? mark() : glyph()));
    if (oneIn(10)) made.setWidth(oneIn(2) ? 0 : 70);
    if (absolutely ? !oneIn(8) : oneIn(8)) made.setFlag(kAbsolute);
    for (const int bit : kFlags)
      if (oneIn(4)) made.setFlag(bit);
    made.setMoveX1(oneIn(3) ? number() : 0);
    made.setMoveY(oneIn(3) ? number() : 0);
    made.setSkipInfo(static_cast<int>(below(5)) - 1);
    made.setCompInfo(static_cast<int>(below(3)) - 1);
    made.setDecompositionType(oneIn(2) ? U_DT_MEDIAL : U_DT_FINAL);
    return made;
  }

  ValueWords words(unsigned format) {
    ValueWords drawn;
    for (unsigned bit = 0; bit < 8; ++bit)
      if ((format >> bit & 1) != 0) drawn.push_back(number());
    return drawn;
  }
  unsigned valueFormat() { return oneIn(3) ? 0 : oneIn(4) ? 0x10 : below(0x20); }

  PlainSubTable subTable(unsigned type) {
    PlainSubTable table;
    table.type = type;
    table.format = 1 + below(2);
    table.covered = type >= 4 && type <= 6 ? marks() : anyGlyphs();
    table.format1 = valueFormat();
    table.format2 = type == 2 ? valueFormat() : 0;
    if (type == 1) singles(table);
    if (type == 2) pairs(table);
    if (type == 3) joints(table);
    if (type >= 4 && type <= 6) attachments(table);
    if (type >= 7) table.context = type == 7 ? context() : chainContext();
    return table;
  }

  void singles(PlainSubTable& table) {
    const std::size_t count = table.format == 1 ? 1 : below(11);
    while (table.values.size() < count) table.values.push_back(words(table.format1));
  }
  void pairs(PlainSubTable& table) {
    if (table.format == 1) {
      for (unsigned i = below(11); i > 0; --i) {
        table.sets.emplace_back();
        for (unsigned k = below(12); k > 0; --k)
          table.sets.back().push_back({glyph(), words(table.format1), words(table.format2)});
        if (!oneIn(3)) sortSet(table.sets.back());
      }
      return;
    }
    for (const unsigned each : kGlyphs) {
      if (!oneIn(3)) table.classes1[each] = below(3);
      if (!oneIn(3)) table.classes2[each] = below(3);
    }
    table.rows.resize(1 + below(3));
    const unsigned columns = 1 + below(3);
    for (auto& row : table.rows)
      while (row.size() < columns) row.push_back({words(table.format1), words(table.format2)});
  }
  static void sortSet(std::vector<PairRecord>& set) {
    const auto less = [](const PairRecord& a, const PairRecord& b) { return a.second < b.second; };
    std::stable_sort(set.begin(), set.end(), less);
  }
  void joints(PlainSubTable& table) {
    for (unsigned i = below(11); i > 0; --i) table.joints.emplace_back(point(), point());
  }
  void attachments(PlainSubTable& table) {
    table.second = table.type == 6 ? some(0, 6) : anyGlyphs();
    table.classCount = 1 + below(2);
    for (unsigned i = 2 + below(2); i > 0; --i) table.marks.emplace_back(below(3) / 2, point());
    for (unsigned i = 4 + below(7); i > 0; --i) {
      table.ligatures.emplace_back();
      for (unsigned k = table.type == 5 ? below(4) : 1; k > 0; --k) {
        table.ligatures.back().emplace_back();
        for (unsigned cls = 0; cls < table.classCount; ++cls)
          table.ligatures.back().back().push_back(point());
      }
    }
  }

  std::string someCoverage() { return coverage(anyGlyphs()); }
  std::vector<std::string> coverages(unsigned most) {
    std::vector<std::string> list(below(most + 1));
    for (std::string& each : list) each = someCoverage();
    return list;
  }
  LookupRecords records() {
    LookupRecords list(below(4));
    for (auto& each : list) each = {below(3), known_ == 0 ? 99 : below(known_)};
    return list;
  }
  std::vector<unsigned> classes(unsigned most) {
    std::vector<unsigned> list(below(most + 1));
    for (unsigned& each : list) each = below(2);
    return list;
  }
  std::string someClasses() {
    return classDefOfRanges({{1, 2, below(2)}, {3, 52, below(2)}, {60, 90, below(2)}});
  }
  std::string context() {
    if (oneIn(2)) return context3(coverages(3), records());
    std::vector<std::vector<Rule>> sets(2);
    for (auto& set : sets)
      for (unsigned i = below(4); i > 0; --i) set.push_back({classes(2), records()});
    return context2(someCoverage(), someClasses(), sets);
  }
  std::string chainContext() {
    if (oneIn(2)) return chainContext3(coverages(1), coverages(2), coverages(1), records());
    std::vector<std::vector<ChainRule>> sets(2);
    for (auto& set : sets)
      for (unsigned i = below(4); i > 0; --i)
        set.push_back({classes(1), classes(2), classes(1), records()});
    return chainContext2(someCoverage(), someClasses(), someClasses(), someClasses(), sets);
  }

  std::mt19937 random_;
  unsigned known_ = 0;
};

}  // namespace qxtest::gpos
