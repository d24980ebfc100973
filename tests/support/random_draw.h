#pragma once

#include <random>

namespace qxtest {

/// Numbers that are drawn alike in every run, on every machine.
class RandomDraw {
 public:
  explicit RandomDraw(unsigned seed) : engine_(seed) {}

  /// A number from 0 to `end` - 1.
  unsigned below(unsigned end) { return static_cast<unsigned>(engine_() % end); }

 private:
  std::mt19937 engine_;
};

}  // namespace qxtest
