#pragma once

#include <functional>
#include <vector>

#include "harness/bench.h"

namespace qxbench {

/// A piece of work whose time is taken.
struct Work {
  std::function<void()> run;
  std::function<void()> prepare;  ///< before each run and not timed; may be empty
};

/// The best time of each work in seconds, a run.
///
/// The works take turns, so that what else the machine does falls on all of them; the best of all
/// rounds is what the work costs. Google Benchmark runs one function to its end before the next,
/// which on a shared machine compares two different hours.
/// A work without `prepare` is repeated in each round for as long as `Settings::slice` says.
std::vector<double> alternate(const Settings& settings, const std::vector<Work>& works);

/// The same of two: ours first.
struct Times {
  double ours = 0;
  double theirs = 0;
};
Times alternate(const Settings& settings, Work ours, Work theirs);

/// Keeps a result alive, so that the work behind it is not optimised away.
void keep(unsigned long long value);

}  // namespace qxbench
