#pragma once

#include <algorithm>
#include <climits>
#include <span>
#include <vector>

#include "layout/context/lookup_flag.h"
#include "layout/gpos/plain_sub_table.h"
#include "layout/records/glyph_record_access.h"

namespace qxtest::gpos {

/// `GPOS` runs over subtables as written, with a walk for each search and recursion for nested
/// lookups: the same steps as the library's in their simplest form, to compare with.
class PlainGpos {
 public:
  PlainGpos(const GposFont& font, const std::vector<PlainLookup>& lookups, Glyphs& glyphs,
            bool rightToLeft)
      : font_(font), lookups_(lookups), glyphs_(glyphs), rightToLeft_(rightToLeft) {}

  /// `GPOS` pass of one lookup.
  int pass(unsigned lookup) {
    if (lookups_[lookup].flag & 1) rightToLeft_ = true;
    int first = -1;
    for (int p = 0; p < size(); ++p)
      if (apply(lookup, p) && first == -1) first = p;
    return first;
  }

  bool apply(unsigned lookup, int& p) {
    if (lookup >= lookups_.size()) return false;
    const PlainLookup& plain = lookups_[lookup];
    for (std::size_t i = 0; i < plain.subTables.size(); ++i)
      if (position(lookup, i, p)) return true;
    return false;
  }

 private:
  using Record = QXFontService_NS::layout::TTI_SubstLookupRecord;
  static constexpr int kNone = INT_MIN;

  int size() const { return static_cast<int>(glyphs_.size()); }
  GlyphIDPosition& glyph(int i) { return at(glyphs_, i); }
  bool has(int i, int bits) { return (glyph(i).getFlag() & bits) == bits; }
  int sum(int i) { return glyph(i).getMoveX1() + glyph(i).getMoveX2(); }
  bool skipped(unsigned flag, int i) {
    return QXFontService_NS::layout::isSkipped(font_, flag, glyph(i).getGlyphIDClassPair());
  }
  int indexIn(const std::vector<unsigned>& covered, int i) {
    const auto found = std::find(covered.begin(), covered.end(), glyph(i).getGlyphID());
    return found == covered.end() ? -1 : static_cast<int>(found - covered.begin());
  }
  void attach(int i, int x, int y) {
    QXFontService_NS::GlyphRecordAccess::addPosition(glyph(i), x, y, kNone, kNone);
  }

  bool position(unsigned lookup, std::size_t subTable, int& p) {
    const PlainSubTable& table = lookups_[lookup].subTables[subTable];
    const unsigned flag = lookups_[lookup].flag;
    if (table.type >= 7) return context(lookup, subTable, p);
    const int index = indexIn(table.covered, p);
    if (index < 0) return false;
    switch (table.type) {
      case 1:
        return single(table, index, p);
      case 2:
        return pair(table, flag, index, p);
      case 3:
        return cursive(table, flag, index, p);
      case 4:
        return markToBase(table, index, p);
      case 5:
        return markToLigature(table, flag, index, p);
      default:
        return markToMark(table, flag, index, p);
    }
  }

  bool value(int i, unsigned format, const ValueWords& words) {
    if ((format & 0x0F) == 0) return false;
    int fields[4] = {kNone, kNone, kNone, kNone};
    std::size_t next = 0;
    for (unsigned bit = 0; bit < 4; ++bit)
      if ((format >> bit & 1) != 0) fields[bit] = words.at(next++) * (bit % 2 == 0 ? 1 : -1);
    QXFontService_NS::GlyphRecordAccess::addPosition2(glyph(i), fields[0], fields[1], fields[2],
                                                      fields[3]);
    return true;
  }

  bool single(const PlainSubTable& table, int index, int p) {
    const auto i = static_cast<std::size_t>(table.format == 1 ? 0 : index);
    return i < table.values.size() && value(p, table.format1, table.values[i]);
  }

  bool pair(const PlainSubTable& table, unsigned flag, int index, int& p) {
    int next = p + 1;
    if (next >= size()) return false;
    const bool absolute = has(p, kAbsolute);
    while (absolute && skipped(flag, next))
      if (++next >= size()) return false;
    const bool applied = table.format == 1 ? pairOfGlyphs(table, index, p, next)
                                           : pairOfClasses(table, p, next, absolute);
    const bool moves = table.format == 1 ? applied : classesFound_;
    if (absolute && moves) p = table.format2 != 0 ? next : next - 1;
    return applied;
  }

  bool pairOfGlyphs(const PlainSubTable& table, int index, int p, int next) {
    const auto set = static_cast<std::size_t>(index);
    if (set >= table.sets.size()) return false;
    for (const PairRecord& record : table.sets[set]) {
      if (record.second != glyph(next).getGlyphID()) continue;
      const bool first = value(p, table.format1, record.value1);
      return value(next, table.format2, record.value2) || first;
    }
    return false;
  }

  int classIn(const std::map<unsigned, unsigned>& classes, int i, bool absolute) {
    const auto found = classes.find(glyph(i).getGlyphID());
    if (found != classes.end()) return static_cast<int>(found->second);
    return absolute ? 0 : -1;
  }

  bool pairOfClasses(const PlainSubTable& table, int p, int next, bool absolute) {
    const int c2 = classIn(table.classes2, next, absolute);
    const int c1 = classIn(table.classes1, p, absolute);
    classesFound_ = c1 != -1 && c2 != -1;
    if (!classesFound_) return false;
    const auto row = static_cast<std::size_t>(c1);
    const auto column = static_cast<std::size_t>(c2);
    if (row >= table.rows.size() || column >= table.rows[row].size()) return false;
    const ClassPair& record = table.rows[row][column];
    const bool first = value(p, table.format1, record.value1);
    return value(next, table.format2, record.value2) || first;
  }

  bool cursive(const PlainSubTable& table, unsigned flag, int index, int p) {
    const auto exitIndex = static_cast<std::size_t>(index);
    if (exitIndex >= table.joints.size() || !table.joints[exitIndex].second) return false;
    const Point exit = *table.joints[exitIndex].second;
    int j = p + 1;
    while (j < size() && (has(p, kAbsolute) ? skipped(flag, j) : glyph(j).getWidth() == 0)) ++j;
    if (j >= size()) return false;
    const auto entryIndex = static_cast<std::size_t>(indexIn(table.covered, j));
    if (entryIndex >= table.joints.size() || !table.joints[entryIndex].first) return false;
    const Point entry = *table.joints[entryIndex].first;
    const int dx = entry.x - glyph(j).getWidth() - exit.x;
    const int dy = exit.y - entry.y;
    if (rightToLeft_ && has(j, kAbsolute)) {
      chain(p, j, dx, dy);
    } else {
      attach(p, dx, dy);
    }
    return true;
  }

  void chain(int p, int j, int dx, int dy) {
    glyph(p).setMoveX1(dx);
    glyph(p).setMoveY(glyph(j).getMoveY() + dy);
    for (int k = p - 1; k >= 0; --k) {
      if (glyph(k).getWidth() == 0) continue;
      const int type = glyph(k).getDecompositionType();
      if (type == 4 || type == 8) break;
      glyph(k).setMoveY(glyph(k).getMoveY() + dy);
    }
    for (int k = j - 1; k > p; --k) {
      if (glyph(k).getWidth() != 0) continue;
      glyph(k).addMoveX1(dx);
      glyph(k).addMoveX2(-dx);
    }
  }

  /// The anchors of a mark and of what carries it; false if one is missing.
  bool anchors(const PlainSubTable& table, int markIndex, int carrier, std::size_t component,
               Point& mark, Point& other) {
    const auto i = static_cast<std::size_t>(markIndex);
    const auto row = static_cast<std::size_t>(indexIn(table.second, carrier));
    if (i >= table.marks.size() || row >= table.ligatures.size()) return false;
    const auto& [cls, anchor] = table.marks[i];
    if (!anchor || cls >= table.classCount || component >= table.ligatures[row].size())
      return false;
    const MaybePoint& there = table.ligatures[row][component].at(cls);
    if (!there) return false;
    mark = *anchor;
    other = *there;
    return true;
  }

  bool markToBase(const PlainSubTable& table, int index, int p) {
    int total = 0;
    int base = -1;
    for (int i = p - 1; i >= 0 && base < 0; --i) {
      total += sum(i);
      if (isBase(i, p)) base = i;
    }
    Point m{}, b{};
    if (base < 0 || !anchors(table, index, base, 0, m, b)) return false;
    const GlyphIDPosition& g = glyph(base);
    if (has(base, kAbsolute) && !rightToLeft_)
      attach(p, g.getMoveX1() - m.x - total + b.x, m.y - b.y);
    else if (has(base, kAbsolute))
      attach(p, b.x - g.getMoveX2() - m.x + total, m.y + g.getMoveY() - b.y);
    else if (!rightToLeft_)
      attach(p, b.x - m.x - g.getWidth(), m.y - b.y);
    else
      attach(p, b.x - m.x, m.y - b.y);
    return true;
  }

  bool isBase(int i, int mark) {
    const bool absolute = rightToLeft_ && has(mark, kAbsolute);
    if (glyph(i).getWidth() == 0 && !absolute && !has(mark, kSeesZeroWidth)) return false;
    const int cls = glyph(i).getGlyphClassDef();
    if (cls < 1 || cls > 4) return true;
    if (cls == 3) return false;
    return !(has(mark, kPassesComponents) && glyph(i).getCompInfo() > 0);
  }

  bool markToLigature(const PlainSubTable& table, unsigned flag, int index, int p) {
    if (p == 0) return false;
    const bool direct = has(p - 1, kByComponent);
    int ligature = p - 1;
    while (ligature >= 0 &&
           (direct ? glyph(ligature).getGlyphClassDef() == 3 : skipped(flag, ligature)))
      --ligature;
    if (ligature < 0) return false;
    const auto row = static_cast<std::size_t>(indexIn(table.second, ligature));
    if (row >= table.ligatures.size()) return false;
    const int count = static_cast<int>(table.ligatures[row].size());
    const int named = glyph(p).getSkipInfo();
    const int component = !direct ? 0 : named > 0 && named <= count ? named - 1 : count - 1;
    Point m{}, l{};
    if (!anchors(table, index, ligature, static_cast<std::size_t>(component), m, l)) return false;
    const GlyphIDPosition& g = glyph(ligature);
    if (direct && rightToLeft_)
      attach(p, l.x + g.getMoveX1() - m.x, m.y - l.y);
    else if (rightToLeft_)
      attach(p, l.x - m.x, m.y - l.y);
    else
      attach(p, l.x - g.getMoveX2() - m.x, l.y - m.y);
    return true;
  }

  bool markToMark(const PlainSubTable& table, unsigned flag, int index, int p) {
    if (p == 0) return false;
    int second = p - 1;
    while (skipped(flag, second)) {
      if (glyph(second).getGlyphClassDef() == 1 || second == 0) return false;
      --second;
    }
    Point m{}, o{};
    const bool named = rightToLeft_ && has(second, kAbsolute | kByComponent);
    if (named && glyph(p).getSkipInfo() != glyph(second).getSkipInfo()) return false;
    if (!anchors(table, index, second, 0, m, o)) return false;
    if (has(second, kAbsolute))
      attach(p, o.x - glyph(second).getMoveX2() - m.x, m.y + glyph(second).getMoveY() - o.y);
    else
      attach(p, m.x - o.x, m.y - o.y);
    return true;
  }

  bool context(unsigned lookup, std::size_t subTable, int& p) {
    namespace layout = QXFontService_NS::layout;
    QXFontService_NS::GlyphIDArray pairs;
    for (const GlyphIDPosition& each : glyphs_) pairs.push_back(each.getGlyphIDClassPair());
    auto meter = layout::WorkMeter::forStep(size());
    std::span<const Record> records;
    std::vector<int> passed;
    const auto& read = font_.gpos->lookupList.lookups[lookup];
    const unsigned flag = rightToLeft_ && has(0, kAbsolute) ? read.flag : 0;
    const int count =
        read.subTables.at(subTable)->matchContext(font_, records, {pairs, meter}, p, flag, passed);
    bool applied = false;
    for (int i = 0; i < count; ++i)
      if (apply(records[static_cast<std::size_t>(i)].lookupListIndex, p)) applied = true;
    return applied;
  }

  const GposFont& font_;
  const std::vector<PlainLookup>& lookups_;
  Glyphs& glyphs_;
  bool rightToLeft_;
  bool classesFound_ = false;
};

}  // namespace qxtest::gpos
