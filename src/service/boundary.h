#pragma once

#include <type_traits>
#include <utility>

#include "qxcommon/error.h"

#include "common/answer_or.h"
#include "font/contract/base_font.h"

namespace QXFontService_NS::service {

/// Runs a function at the public boundary: a `QXError` and every standard exception but
/// `std::bad_alloc` become the neutral answer. What a host's callback throws passes.
template <class Neutral, class Function>
std::invoke_result_t<Function> atBoundary(Neutral&& neutral, Function&& function) {
  using Result = std::invoke_result_t<Function>;
  try {
    return QXCommonNS::answerOr(neutral, function);
  } catch (const QXCommonNS::QXError&) {
    return static_cast<Result>(std::forward<Neutral>(neutral));
  }
}

/// Asks an operation of a font, at the boundary; the neutral answer without a font.
template <auto Operation, class Font, class Neutral, class... Args>
auto askFont(Font* font, Neutral&& neutral, Args&&... args)
    -> decltype((font->*Operation)(std::forward<Args>(args)...)) {
  using Result = decltype((font->*Operation)(std::forward<Args>(args)...));
  if (font == nullptr) return static_cast<Result>(std::forward<Neutral>(neutral));
  return atBoundary(std::forward<Neutral>(neutral),
                    [&]() -> Result { return (font->*Operation)(std::forward<Args>(args)...); });
}

}  // namespace QXFontService_NS::service
