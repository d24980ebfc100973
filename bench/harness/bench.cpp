#include "harness/bench.h"

#include <algorithm>
#include <cstdlib>

#include "harness/report.h"

namespace qxbench {
namespace {

std::vector<const Row*>& rows() {
  static std::vector<const Row*> all;
  return all;
}

bool isBefore(const Row* a, const Row* b) {
  const int left = std::atoi(a->number.c_str());
  const int right = std::atoi(b->number.c_str());
  return left != right ? left < right : a->name < b->name;
}

}  // namespace

Row::Row(const char* rowNumber, const char* rowName, Run rowRun)
    : number(rowNumber), name(rowName), run(rowRun) {
  rows().push_back(this);
}

std::vector<const Row*> allRows() {
  std::vector<const Row*> sorted = rows();
  std::sort(sorted.begin(), sorted.end(), isBefore);
  return sorted;
}

void Bench::add(Outcome outcome) {
  outcomes_.push_back({number_, std::move(outcome)});
  printOutcome(outcomes_.back());
}

void Bench::add(Growth growth) {
  growths_.push_back(std::move(growth));
  printGrowth(growths_.back());
}

void Bench::notComparable(const std::string& name, const std::string& why) {
  unequal_.push_back({name, why});
  printRemark(number_, unequal_.back(), "not comparable");
}

void Bench::leaveOut(const std::string& name, const std::string& why) {
  leftOut_.push_back({name, why});
  printRemark(number_, leftOut_.back(), "left out");
}

}  // namespace qxbench
