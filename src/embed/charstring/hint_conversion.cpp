#include <algorithm>

#include "embed/charstring/glyph_conversion.h"

namespace QXFontService_NS::charstring {

using embed::Keyword;
using QXCommonNS::QXValue;

namespace {

constexpr int kHorizontal = 0;
constexpr int kVertical = 1;

Keyword stemKeyword(const FS_Stem& stem) {
  return stem.kind == kHorizontal ? Keyword::kHstem : Keyword::kVstem;
}

void appendStem(const FS_Stem& stem, FS_CharStringTokens& out) {
  out.push_back(stem.position);
  out.push_back(stem.width);
  out.push_back(embed::keywordValue(stemKeyword(stem)));
}

}  // namespace

bool GlyphConversion::stems(Operands operands, int kind) {
  if (operands.size() % 2 != 0) return false;
  for (const FS_Stem& stem : stemsOf(operands, kind)) {
    appendStem(stem, out_);
    glyph_.stems.push_back(stem);
  }
  return true;
}

// Operands right before a mask are stems of the other direction than those declared before it.
bool GlyphConversion::pendingStems() {
  if (operands_.empty()) return true;
  switch (previous_) {
    case Keyword::kHstem:
    case Keyword::kHstemhm:
      return stems(operands_, kVertical);
    case Keyword::kVstem:
    case Keyword::kVstemhm:
      return stems(operands_, kHorizontal);
    default:
      return false;
  }
}

// The stems of the set bits of the mask behind the operator. `at` throws for a bit without a stem.
bool GlyphConversion::takeMask(std::vector<const FS_Stem*>& masked) {
  if (!pendingStems() || next_ >= tokens_.size()) return false;
  const int size = tokens_[next_++].getIntegerValue();
  if (size < 0 || static_cast<std::size_t>(size) > tokens_.size() - next_) return false;
  for (std::size_t byte = 0; byte < static_cast<std::size_t>(size); ++byte) {
    const int bits = tokens_[next_++].getIntegerValue();
    for (std::size_t bit = 0; bit < 8; ++bit)
      if ((bits & 0x80 >> bit) != 0) masked.push_back(&glyph_.stems.at(byte * 8 + bit));
  }
  masked_ += masked.size();
  return true;
}

// Type 1 replaces hints by a Subr. Equal masks are not merged: every `hintmask` has its own.
bool GlyphConversion::hintmask() {
  std::vector<const FS_Stem*> masked;
  if (!takeMask(masked)) return false;
  FS_CharStringTokens subr;
  for (const FS_Stem* stem : masked) appendStem(*stem, subr);
  subr.push_back(embed::keywordValue(Keyword::kReturn));
  subrs_.push_back(std::move(subr));
  emit({QXValue(glyph_.subrBase + subrsMade_++), QXValue(1), QXValue(3)}, Keyword::kCallothersubr);
  emit(Operands(), Keyword::kPop);
  emit(Operands(), Keyword::kCallsubr);
  return true;
}

bool GlyphConversion::cntrmask() {
  std::vector<const FS_Stem*> masked;
  if (!takeMask(masked)) return false;
  std::vector<FS_CounterEntry> horizontal;
  std::vector<FS_CounterEntry> vertical;
  for (const FS_Stem* stem : masked)
    addToGroup(stem->kind == kHorizontal ? horizontal : vertical, *stem);
  markEnd(horizontal);
  markEnd(vertical);
  if (!horizontal.empty()) glyph_.hCounters.push_back(std::move(horizontal));
  if (!vertical.empty()) glyph_.vCounters.push_back(std::move(vertical));
  return true;
}

// Counters are told once, before all hints: right behind `hsbw`.
void GlyphConversion::writeCounters() {
  if (glyph_.hCounters.empty() && glyph_.vCounters.empty()) return;
  const FS_CharStringTokens counters = counterTokens(glyph_.hCounters, glyph_.vCounters);
  const auto hsbw = std::find_if(out_.begin(), out_.end(), [](const QXValue& token) {
    return embed::keywordOf(token) == Keyword::kHsbw;
  });
  if (hsbw != out_.end()) out_.insert(hsbw + 1, counters.begin(), counters.end());
}

}  // namespace QXFontService_NS::charstring
