#include "layout/gsub/context_output.h"

#include <algorithm>

namespace QXFontService_NS::layout {

// Where nothing is held, from + lead equals tailFrom.

void ContextOutput::reset(const GlyphSequence& glyphs) {
  glyphs_ = &glyphs;
  state_.from = 0;
  state_.lead = glyphs.size();
  state_.tailFrom = glyphs.size();
  state_.held.clear();
}

int ContextOutput::size() const {
  return state_.lead + heldCount() + (glyphs_->size() - state_.tailFrom);
}

GlyphIDClassPair ContextOutput::at(int i) const {
  if (i < state_.lead) return (*glyphs_)[state_.from + i];
  i -= state_.lead;
  if (i < heldCount()) return state_.held[static_cast<std::size_t>(i)];
  return (*glyphs_)[state_.tailFrom + i - heldCount()];
}

void ContextOutput::holdOneMore() {
  state_.held.push_back((*glyphs_)[state_.tailFrom++]);
}

/// Rules may point far from their match: what that costs is counted like comparisons. To move the
/// held glyphs by one place costs less, as they lie in a row.
void ContextOutput::count(int copied) {
  static_cast<void>(glyphs_->spend(copied));
}
void ContextOutput::countShift(int moved) {
  constexpr int kMovedAtOnce = 16;
  count(moved / kMovedAtOnce);
}

/// Makes the held part reach over `i`, which must be inside.
void ContextOutput::hold(int i) {
  if (state_.held.empty()) {
    state_.lead = i;
    state_.tailFrom = state_.from + i;
  }
  if (i < state_.lead) {
    std::vector<GlyphIDClassPair> before;
    for (int k = i; k < state_.lead; ++k) before.push_back((*glyphs_)[state_.from + k]);
    state_.held.insert(state_.held.begin(), before.begin(), before.end());
    state_.lead = i;
    count(static_cast<int>(before.size()));
    countShift(heldCount());
  }
  count(std::max(0, i - state_.lead - heldCount()));
  while (i >= state_.lead + heldCount()) holdOneMore();
}

void ContextOutput::set(int i, const GlyphIDClassPair& pair) {
  if (!isInside(i)) return;
  hold(i);
  state_.held[static_cast<std::size_t>(i - state_.lead)] = pair;
}

void ContextOutput::insert(int i, const GlyphIDClassPair& pair) {
  if (isInside(i)) {
    hold(i);
    countShift(heldCount() - (i - state_.lead));
    state_.held.insert(state_.held.begin() + (i - state_.lead), pair);
    return;
  }
  if (const int count = size(); count > 0) hold(count - 1);
  state_.held.push_back(pair);
}

void ContextOutput::eraseFront(int count) {
  const int fromLead = std::min(count, state_.lead);
  const int fromHeld = std::min(count - fromLead, heldCount());
  const int fromTail = std::min(count - fromLead - fromHeld, glyphs_->size() - state_.tailFrom);
  state_.from += fromLead;
  state_.lead -= fromLead;
  state_.held.erase(state_.held.begin(), state_.held.begin() + fromHeld);
  state_.tailFrom += fromTail;
  if (state_.held.empty()) state_.from = state_.tailFrom - state_.lead;
}

std::vector<GlyphIDClassPair> ContextOutput::front(int count) const {
  std::vector<GlyphIDClassPair> glyphs;
  glyphs.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) glyphs.push_back(at(i));
  return glyphs;
}

}  // namespace QXFontService_NS::layout
