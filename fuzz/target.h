#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qxfuzz {

/// What is fed with broken bytes.
struct Target {
  std::string_view name;
  std::string_view what;                ///< for the list of `./dev fuzz`
  std::vector<std::string> (*seeds)();  ///< sound inputs, from the builders of the tests
  void (*run)(std::string_view input);
};

/// All targets, by name.
const std::vector<Target>& targets();

}  // namespace qxfuzz
