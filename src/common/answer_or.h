#pragma once

#include <exception>
#include <functional>
#include <new>
#include <type_traits>
#include <utility>

namespace QXCommonNS {

/// Runs a function at the public boundary and turns a failure of the library's own into an answer.
///
///     return answerOr(false, [&] { return font.getEmbedFont(gids, out); });
///
/// @param neutral what is answered when the function throws a `std::exception`, such as the
///        `std::out_of_range` of damaged fonts.
/// @param function takes nothing.
/// @return the function's answer, or `neutral`.
/// @throws std::bad_alloc, `QXError` and whatever else is no `std::exception`: they pass to the
///         host.
template <class Neutral, class Function>
std::invoke_result_t<Function> answerOr(Neutral&& neutral, Function&& function) {
  using Result = std::invoke_result_t<Function>;
  static_assert(!std::is_reference_v<Result> || std::is_lvalue_reference_v<Neutral>,
                "the answer would refer to a temporary");
  try {
    return std::invoke(std::forward<Function>(function));
  } catch (const std::bad_alloc&) {
    throw;
  } catch (const std::exception&) {
    return static_cast<Result>(std::forward<Neutral>(neutral));
  }
}

}  // namespace QXCommonNS
