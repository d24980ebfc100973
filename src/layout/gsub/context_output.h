#pragma once

#include <vector>

#include "qxfontservice/glyph_id_array.h"

#include "layout/records/glyph_sequence.h"

namespace QXFontService_NS::layout {

/// The glyphs that a contextual lookup makes of a sequence: a copy of it that is changed here and
/// there. Only the changed part is held; what stands before and behind it is read from the
/// sequence, since copying a long one at each match would make a pass quadratic.
class ContextOutput {
 public:
  /// Makes this a copy of all of `glyphs`, which must stay as they are while it is used.
  void reset(const GlyphSequence& glyphs);

  [[nodiscard]] int size() const;
  /// The glyph at `i`, which must be inside.
  [[nodiscard]] GlyphIDClassPair at(int i) const;
  /// Replaces the glyph at `i`; nothing where that is outside.
  void set(int i, const GlyphIDClassPair& pair);
  /// Inserts before `i`, or at the end where that is outside.
  void insert(int i, const GlyphIDClassPair& pair);
  /// Removes the first `count` glyphs, or as many as there are.
  void eraseFront(int count);

  /// The first `count` glyphs, which must be there.
  [[nodiscard]] std::vector<GlyphIDClassPair> front(int count) const;

  /// The part that is held, as a value: what a nested lookup left.
  struct State {
    int from = 0;      ///< place in the sequence of the first glyph
    int lead = 0;      ///< how many glyphs stand unchanged before the held ones
    int tailFrom = 0;  ///< place in the sequence of the first glyph behind them
    std::vector<GlyphIDClassPair> held;
  };
  [[nodiscard]] const State& state() const { return state_; }
  /// Puts a state of the same sequence back.
  void restore(const State& state) { state_ = state; }

 private:
  [[nodiscard]] int heldCount() const { return static_cast<int>(state_.held.size()); }
  [[nodiscard]] bool isInside(int i) const { return i >= 0 && i < size(); }
  void hold(int i);
  void holdOneMore();
  void count(int copied);
  void countShift(int moved);

  const GlyphSequence* glyphs_ = nullptr;
  State state_;
};

}  // namespace QXFontService_NS::layout
