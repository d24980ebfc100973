#include "qxfont/typeset/bidi.h"

#include <memory>
#include <new>

namespace qxfont {
namespace {

using Paragraph = std::unique_ptr<UBiDi, void (*)(UBiDi*)>;

/// ICU fails here for want of memory alone.
void check(UErrorCode status) {
  if (U_FAILURE(status)) throw std::bad_alloc();
}

}  // namespace

Bidi::Bidi(const icu::UnicodeString& text) {
  if (text.isEmpty()) return;
  const Paragraph paragraph(ubidi_open(), &ubidi_close);
  if (!paragraph) throw std::bad_alloc();
  UErrorCode status = U_ZERO_ERROR;
  ubidi_setPara(paragraph.get(), text.getBuffer(), text.length(), UBIDI_DEFAULT_LTR, nullptr,
                &status);
  check(status);
  const UBiDiLevel* levels = ubidi_getLevels(paragraph.get(), &status);
  check(status);
  levels_.assign(levels, levels + text.length());
  base_ = ubidi_getParaLevel(paragraph.get());
}

std::vector<int> visualOrder(const std::vector<UBiDiLevel>& levels) {
  std::vector<int> order(levels.size());
  if (!levels.empty())
    ubidi_reorderVisual(levels.data(), static_cast<int>(levels.size()), order.data());
  return order;
}

}  // namespace qxfont
