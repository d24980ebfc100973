#pragma once

#include <atomic>

namespace QXFontService_NS::layout {

/// How often each bound of `limits.h` was met since the start. Kept in debug builds only, for
/// tests: they prove that a bound and nothing else gave an answer.
struct SpentBudgets {
  std::atomic<unsigned> nestedRuns{0};
  std::atomic<unsigned> comparisons{0};
  std::atomic<unsigned> nestingLevels{0};
  std::atomic<unsigned> growth{0};
  std::atomic<unsigned> graph{0};
  std::atomic<unsigned> langSys{0};
};

#ifdef NDEBUG
inline constexpr bool kCountsSpentBudgets = false;
#else
inline constexpr bool kCountsSpentBudgets = true;
#endif

inline SpentBudgets& spentBudgets() {
  static SpentBudgets budgets;
  return budgets;
}

/// Notes that a bound was met: `noteSpent(spentBudgets().graph)`.
inline void noteSpent(std::atomic<unsigned>& budget) {
  if constexpr (kCountsSpentBudgets) budget.fetch_add(1, std::memory_order_relaxed);
}

}  // namespace QXFontService_NS::layout
