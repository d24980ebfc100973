#pragma once

#include <algorithm>
#include <stdexcept>
#include <vector>

#include "layout/glyph_runs.h"
#include "layout/gsub/lookups.h"
#include "layout/records/glyph_record_access.h"

namespace qxtest {

/// `GSUB` runs over plain vectors, copied whole at each match and edited in place, with recursion
/// for nested lookups: the same steps as the library's in their simplest form, to compare with.
class PlainGsub {
 public:
  using Array = QXFontService_NS::GlyphIDArray;
  using Pair = QXFontService_NS::GlyphIDClassPair;
  using Lookup = QXFontService_NS::layout::TTI_Lookup;

  explicit PlainGsub(const QXFontService_NS::FS_LayoutTables& font)
      : font_(font), list_(font.gsub->lookupList) {}

  Pass pass(unsigned lookupIndex, const Ids& ids, const std::vector<unsigned>& maskWords) {
    glyphs_ = glyphRun(font_, ids);
    words_.assign(ids.size(), 1);
    mask_ = maskWords;
    mask_.resize(ids.size());
    Pass result;
    try {
      result.changed = run(list_.lookups[lookupIndex]);
    } catch (const std::out_of_range&) {
      glyphs_ = glyphRun(font_, ids);
      words_.assign(ids.size(), 1);
      result.changed = false;
    }
    result.glyphs = idsOf(glyphs_);
    for (const unsigned word : words_) {
      result.liga.push_back(static_cast<int>(word & 0xFFFF));
      result.skip.push_back(static_cast<int>(word >> 16));
    }
    return result;
  }

  /// Whether the array grew too long to go on.
  bool gaveUp() const { return glyphs_.size() > kLongest; }

  Step step(unsigned lookupIndex, const Ids& ids, int position) {
    namespace layout = QXFontService_NS::layout;
    const Lookup& lookup = list_.lookups[lookupIndex];
    const Array input = glyphRun(font_, ids);
    Array output;
    std::vector<int> skipped;
    Step result;
    result.position = position;
    if (lookup.type == 5 || lookup.type == 6) {
      const bool matched = contextMatches(lookup, input, position);
      const int answer = context(lookup, input, result.position, output, skipped);
      result.result = std::min(answer, output.size());
      if (matched) result.output = idsOf(output);
    } else if (lookup.type == 4) {
      auto meter = layout::WorkMeter::forStep(input.size());
      const Pair pair =
          layout::lookupLigature(font_, lookup, {input, meter}, result.position, skipped);
      if (pair.hasGlyph()) result.output = {pair.glyphID};
      result.result = pair.hasGlyph() ? 1 : 0;
    }
    if (result.result != 0) {
      result.matched.clear();
      for (const int place : skipped) result.matched.push_back(input[place].glyphID);
    }
    return result;
  }

 private:
  static constexpr int kLongest = 500;

  bool run(const Lookup& lookup) {
    switch (lookup.type) {
      case 2:
        return expandEach(lookup);
      case 4:
        return joinEach(lookup);
      case 5:
      case 6:
        return contextEach(lookup);
      default:
        return false;
    }
  }

  unsigned maskAt(int i) { return mask_.at(static_cast<std::size_t>(i)); }
  unsigned& wordAt(int i) { return words_.at(static_cast<std::size_t>(i)); }

  template <class Vector>
  static void eraseRange(Vector& items, int first, int last) {
    if (first < last) items.erase(items.begin() + first, items.begin() + last);
  }
  template <class Vector>
  static void insertZeros(Vector& items, int at, int count) {
    const int place = std::min(at, static_cast<int>(items.size()));
    items.insert(items.begin() + place, static_cast<std::size_t>(count), 0U);
  }

  bool expandEach(const Lookup& lookup) {
    bool changed = false;
    auto meter = QXFontService_NS::layout::WorkMeter::forPass(glyphs_.size());
    for (int i = 0; i < glyphs_.size(); ++i) {
      Array made;
      if (maskAt(i) != 0) continue;
      if (!QXFontService_NS::layout::lookupMultiple(font_, lookup, glyphs_[i].glyphID, made, meter))
        continue;
      if (made.empty()) continue;
      glyphs_[i] = made[0];
      for (int k = 1; k < made.size(); ++k) glyphs_.insert(i + k, made[k]);
      insertZeros(words_, i + 1, made.size() - 1);
      insertZeros(mask_, i + 1, made.size() - 1);
      i += made.size() - 1;
      changed = true;
    }
    return changed;
  }

  bool joinEach(const Lookup& lookup) {
    bool changed = false;
    for (int i = 0; i < glyphs_.size(); ++i) {
      if (maskAt(i) != 0) continue;
      auto meter = QXFontService_NS::layout::WorkMeter::forPass(glyphs_.size());
      std::vector<int> skipped;
      int p = i;
      const Pair pair =
          QXFontService_NS::layout::lookupLigature(font_, lookup, {glyphs_, meter}, p, skipped);
      if (!pair.hasGlyph()) continue;
      glyphs_[i] = pair;
      changed = true;
      if (skipped.empty()) {
        glyphs_.erase(i + 1, p);
        for (int k = i + 1; k < p; ++k) wordAt(i) += wordAt(k);
        eraseRange(words_, i + 1, p);
        eraseRange(mask_, i + 1, p);
      } else {
        mergeKeepingSkipped(i, i + 1, p, skipped);
      }
    }
    return changed;
  }

  void mergeKeepingSkipped(int i, int from, int p, const std::vector<int>& skipped) {
    int w = from;
    std::size_t k = 0;
    for (int r = from; r < p; ++r) {
      if (k < skipped.size() && r == skipped[k]) {
        glyphs_[w] = glyphs_[r];
        wordAt(w) = wordAt(r) | static_cast<unsigned>(r) << 16;
        mask_.at(static_cast<std::size_t>(w)) = maskAt(r);
        ++w;
        ++k;
      } else {
        wordAt(i) += wordAt(r);
      }
    }
    glyphs_.erase(w, p);
    eraseRange(words_, w, p);
    eraseRange(mask_, w, p);
  }

  bool contextEach(const Lookup& lookup) {
    bool changed = false;
    for (int i = 0; i < glyphs_.size() && !gaveUp(); ++i) {
      if (maskAt(i) != 0) continue;
      Array out;
      std::vector<int> skipped;
      int p = i;
      const int answer = context(lookup, glyphs_, p, out, skipped);
      const int r = std::min(answer, out.size());
      if (r == 0) continue;
      const int first = glyphs_[i].glyphID;
      int again = 0;
      if (!skipped.empty()) {
        glyphs_[i] = out[0];
        for (int k = 1; k < r; ++k) glyphs_.insert(i + k, out[k]);
        if (i + 1 < p) mergeKeepingSkipped(i, i + 1, p, skipped);
      } else {
        glyphs_.erase(i, p);
        for (int k = 0; k < r; ++k) {
          glyphs_.insert(i + k, out[k]);
          if (out[k].glyphID == first) again = k + 1;
        }
        if (i + 1 < p) {
          int t = i;
          while (t > 0 && wordAt(t) == 0) --t;
          for (int k = i + 1; k < p; ++k) wordAt(t) += wordAt(k);
          eraseRange(words_, i + 1, p);
          eraseRange(mask_, i + 1, p);
        }
      }
      if (r > 1) {
        insertZeros(words_, i + 1, r - 1);
        insertZeros(mask_, i + 1, r - 1);
      }
      if (lookup.type == 5) {
        i += r - 1;
      } else if (again != 0 && i + 1 == p) {
        i += again - 1;
      }
      changed = true;
    }
    return changed;
  }

  using Records = std::span<const QXFontService_NS::layout::TTI_SubstLookupRecord>;

  int match(const Lookup& lookup, const Array& glyphs, int position, Records& records,
            std::vector<int>& passed) {
    auto meter = QXFontService_NS::layout::WorkMeter::forPass(glyphs.size());
    for (const auto& subTable : lookup.subTables) {
      passed.clear();
      if (!subTable) continue;
      const int n =
          subTable->matchContext(font_, records, {glyphs, meter}, position, lookup.flag, passed);
      if (n != 0) return n;
    }
    return 0;
  }

  bool contextMatches(const Lookup& lookup, const Array& glyphs, int position) {
    Records records;
    std::vector<int> passed;
    return match(lookup, glyphs, position, records, passed) != 0;
  }

  int context(const Lookup& lookup, const Array& glyphs, int& position, Array& output,
              std::vector<int>& skipped) {
    Records records;
    std::vector<int> passed;
    const int n = match(lookup, glyphs, position, records, passed);
    if (n == 0) return 0;
    const int start = position;
    int furthest = position;
    output = glyphs;
    int result = 0;
    for (int k = 0; k < n; ++k) {
      const auto& record = records[static_cast<std::size_t>(k)];
      int place = start + record.sequenceIndex;
      for (const int skip : passed) {
        if (skip > place) break;
        ++place;
      }
      if (place >= glyphs.size()) continue;
      position = place;
      const int r = nested(record.lookupListIndex, glyphs, position, output, skipped);
      if (r != 0) result = std::max(result, r - start + place);
      furthest = std::max(furthest, position);
    }
    position = furthest;
    output.erase(0, start);
    return result;
  }

  int nested(unsigned index, const Array& glyphs, int& position, Array& output,
             std::vector<int>& skipped) {
    namespace layout = QXFontService_NS::layout;
    const Lookup* lookup = list_.find(index);
    if (lookup == nullptr) return 0;
    const int old = position;
    const unsigned short glyph = glyphs[old].glyphID;
    auto meter = layout::WorkMeter::forPass(glyphs.size());
    Array made;
    switch (lookup->type) {
      case 1:
        return one(layout::lookupSingle(font_, *lookup, glyph, meter), position, output);
      case 2:
        if (!layout::lookupMultiple(font_, *lookup, glyph, made, meter) || made.empty()) return 0;
        put(output, old, made[0]);
        ++position;
        for (int k = 1; k < made.size(); ++k) output.insert(old + k, made[k]);
        return made.size();
      case 3:
        return one(layout::lookupAlternate(font_, *lookup, glyph, 1, meter), position, output);
      case 4: {
        const Pair pair =
            layout::lookupLigature(font_, *lookup, {glyphs, meter}, position, skipped);
        if (!pair.hasGlyph()) return 0;
        put(output, old, pair);
        for (int k = old + 1; k < position; ++k) put(output, k, Pair());
        return 1;
      }
      case 5:
      case 6:
        return context(*lookup, glyphs, position, output, skipped) != 0 ? 1 : 0;
      default:
        return 0;
    }
  }

  static void put(Array& output, int i, const Pair& pair) {
    if (i < output.size()) output[i] = pair;
  }
  static int one(const Pair& pair, int& position, Array& output) {
    if (!pair.hasGlyph()) return 0;
    put(output, position++, pair);
    return 1;
  }

  const QXFontService_NS::FS_LayoutTables& font_;
  const QXFontService_NS::layout::TTI_LookupList& list_;
  Array glyphs_;
  std::vector<unsigned> words_;
  std::vector<unsigned> mask_;
};

}  // namespace qxtest
