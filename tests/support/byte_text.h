#pragma once

#include <initializer_list>
#include <string>

namespace qxtest {

/// A byte string from numbers: `bytesOf({0x01, 0xFF})`.
inline std::string bytesOf(std::initializer_list<int> values) {
  std::string out;
  for (int value : values) out += static_cast<char>(value);
  return out;
}

}  // namespace qxtest
