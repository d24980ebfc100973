#pragma once

#include <string>

#include "harness/bench.h"

namespace qxbench {

/// A figure that is taken in a process of its own, started for it alone: how much memory a work
/// takes depends on the heap that the work finds, and rows cut it up for those behind them.
///
/// Defined at namespace scope beside the row that asks for it. The process is this program once
/// more, with `--measure NAME ARGUMENT`.
class OwnProcess {
 public:
  using Measure = double (*)(const FontSets& fonts, const std::string& argument);

  OwnProcess(const char* name, Measure take);

  /// The figure; 0 where there is none.
  [[nodiscard]] double measure(const Bench& bench, const std::string& argument) const;

 private:
  std::string name_;
};

/// The other side: takes a figure and prints it; false when there is no measure of that name.
bool measureHere(const FontSets& fonts, const std::string& name, const std::string& argument);

}  // namespace qxbench
