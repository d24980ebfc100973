#pragma once

#include <string>

#include "harness/bench.h"
#include "harness/machine.h"

namespace qxbench {

void printHead(const Machine& machine, const Settings& settings);
void printOutcome(const Bench::Numbered& row);
void printGrowth(const Growth& growth);
void printRemark(const std::string& number, const Remark& remark, const char* verdict);

/// Writes all results as JSON. False when the file cannot be written.
bool writeResults(const Bench& bench, const Machine& machine, const std::string& path);

}  // namespace qxbench
