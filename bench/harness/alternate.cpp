#include "harness/alternate.h"

#include <algorithm>
#include <chrono>
#include <limits>

namespace qxbench {
namespace {

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start) {
  return std::chrono::duration<double>(Clock::now() - start).count();
}

double timeOf(const Work& work, int repeats) {
  if (work.prepare) work.prepare();
  const auto start = Clock::now();
  for (int i = 0; i < repeats; ++i) work.run();
  return secondsSince(start) / repeats;
}

/// How often a work is run in a round, by one run that also warms what it touches.
int repeatsOf(const Work& work, const Settings& settings) {
  constexpr double kMost = 1e6;
  const double once = std::max(timeOf(work, 1), 1e-9);
  if (work.prepare || settings.brief) return 1;
  return static_cast<int>(std::clamp(settings.slice / once, 1.0, kMost));
}

}  // namespace

std::vector<double> alternate(const Settings& settings, const std::vector<Work>& works) {
  std::vector<int> repeats;
  for (const Work& work : works) repeats.push_back(repeatsOf(work, settings));
  std::vector<double> best(works.size(), std::numeric_limits<double>::max());
  for (int round = 0; round < settings.rounds; ++round) {
    for (std::size_t i = 0; i < works.size(); ++i)
      best[i] = std::min(best[i], timeOf(works[i], repeats[i]));
  }
  return best;
}

Times alternate(const Settings& settings, Work ours, Work theirs) {
  const std::vector<double> best = alternate(settings, {std::move(ours), std::move(theirs)});
  return {best[0], best[1]};
}

void keep(unsigned long long value) {
  static volatile unsigned long long kept;
  kept = kept + value;
}

}  // namespace qxbench
