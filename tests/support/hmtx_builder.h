#pragma once

#include <string>
#include <vector>

namespace qxtest {

/// The bytes of an `hmtx` table: a long metric for each advance width, whose side bearing is its
/// index, and `trailing` side bearings behind them.
std::string hmtxTable(const std::vector<unsigned>& advances, unsigned trailing = 0);

}  // namespace qxtest
