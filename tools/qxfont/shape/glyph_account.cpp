#include "qxfont/shape/glyph_account.h"

#include <algorithm>
#include <cstddef>

namespace qxfont {
namespace {

std::size_t at(int index) {
  return static_cast<std::size_t>(index);
}

/// Follows a pass from its first glyph to its last: what a result stands for follows in the run
/// behind what the results before it stand for.
class PassAccount {
 public:
  PassAccount(const GlyphRun& before, const std::vector<PassedGlyph>& result)
      : before_(before), result_(result) {}

  GlyphRun run() {
    for (int i = 0; i < size();) {
      const int kept = keptBehind(i);
      if (kept > 0) {
        merge(i, kept);
      } else {
        take(i);
      }
      i += 1 + kept;
    }
    return std::move(after_);
  }

 private:
  [[nodiscard]] int size() const { return static_cast<int>(result_.size()); }

  /// How many glyphs behind `i` a ligature there passed over: each tells its index of then.
  [[nodiscard]] int keptBehind(int i) const {
    const int merged = result_[at(i)].standsFor;
    int kept = 0;
    int last = i;
    while (i + kept + 1 < size()) {
      const int next = i + kept + 1;
      const int index = result_[at(next)].passedAt;
      const bool sound =
          result_[at(next)].standsFor == 1 && index > last && index < i + merged + kept + 1;
      if (!sound) break;
      last = index;
      ++kept;
    }
    return next_ + merged + kept <= static_cast<int>(before_.size()) ? kept : 0;
  }

  /// The glyph at `i` stands for the next glyphs of the run, or was added behind the one before.
  void take(int i) {
    RunGlyph glyph = source(i);
    glyph.pair = result_[at(i)].pair;
    const int end = std::min(next_ + result_[at(i)].standsFor, static_cast<int>(before_.size()));
    for (; next_ < end; ++next_)
      glyph.cluster = std::min(glyph.cluster, before_[at(next_)].cluster);
    after_.push_back(glyph);
  }

  [[nodiscard]] RunGlyph source(int i) const {
    if (result_[at(i)].standsFor == 0 && !after_.empty()) return after_.back();
    return before_.empty() ? RunGlyph() : before_[std::min(at(next_), before_.size() - 1)];
  }

  /// The glyph at `i` stands for the next glyphs of the run but `kept` ones, which stay behind it.
  void merge(int i, int kept) {
    const int begin = next_;
    const int end = begin + result_[at(i)].standsFor + kept;
    RunGlyph ligature = before_[at(begin)];
    ligature.pair = result_[at(i)].pair;
    after_.push_back(ligature);
    for (int k = 1; k <= kept; ++k) {
      const int index = result_[at(i + k)].passedAt - i;  // in the run, from `begin`
      RunGlyph mark = before_[at(begin + index)];
      mark.pair = result_[at(i + k)].pair;
      mark.cluster = ligature.cluster;
      mark.component = index - (k - 1);
      after_.push_back(mark);
    }
    next_ = end;
  }

  const GlyphRun& before_;
  const std::vector<PassedGlyph>& result_;
  GlyphRun after_;
  int next_ = 0;  // of the run
};

}  // namespace

fs::GlyphIDArray2 glyphsOf(const GlyphRun& run) {
  fs::GlyphIDArray2 glyphs(static_cast<int>(run.size()));
  for (std::size_t i = 0; i < run.size(); ++i) glyphs[static_cast<int>(i)] = run[i].pair;
  return glyphs;
}

std::vector<PassedGlyph> passedGlyphs(const fs::GlyphIDArray2& result) {
  std::vector<PassedGlyph> glyphs;
  for (int i = 0; i < result.size(); ++i)
    glyphs.push_back({result[i], result.ligaInfo(i), result.skipInfo(i)});
  return glyphs;
}

GlyphRun accountForPass(const GlyphRun& before, const std::vector<PassedGlyph>& result) {
  return PassAccount(before, result).run();
}

void accountForStep(GlyphRun& run, int first, int end, const fs::GlyphIDArray& glyphs,
                    int replaced) {
  const RunGlyph source = run[at(first)];
  GlyphRun made;
  for (int i = 0; i < glyphs.size(); ++i) {
    made.push_back(source);
    made.back().pair = glyphs[i];
    if (i >= replaced) made.back().form = 0;
  }
  run.erase(run.begin() + first, run.begin() + end);
  run.insert(run.begin() + first, made.begin(), made.end());
}

}  // namespace qxfont
