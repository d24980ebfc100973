// Measures the service beside the software that a user would take instead, and writes the
// results as JSON. ./dev bench builds it, runs it and draws docs/performance.md.
//
//   bench [--fonts FOLDER] [--scratch FOLDER] [--out FILE] [--rounds N] [--brief] [FILTER]
//
// It starts itself once more for figures that want a process of their own: harness/own_process.h.

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>

#include "harness/bench.h"
#include "harness/machine.h"
#include "harness/own_process.h"
#include "harness/report.h"

namespace {

using qxbench::Bench;
using qxbench::Row;

struct Arguments {
  std::string fonts;
  std::string scratch = "build/bench/scratch";
  std::string out;
  std::string filter;
  std::string measure;  ///< a figure for another bench: take it, print it and end
  std::string argument;
  qxbench::Settings settings;
};

void beBrief(Arguments& arguments) {
  arguments.settings.brief = true;
  arguments.settings.rounds = 1;
}

/// The value behind an option; ends the program when there is none.
std::string valueAt(int count, char** values, int& at) {
  if (at + 1 < count) return values[++at];
  std::fprintf(stderr, "bench: %s wants a value\n", values[at]);
  std::exit(2);
}

Arguments parse(int count, char** values) {
  Arguments arguments;
  for (int i = 1; i < count; ++i) {
    const std::string option = values[i];
    if (option == "--fonts") {
      arguments.fonts = valueAt(count, values, i);
    } else if (option == "--scratch") {
      arguments.scratch = valueAt(count, values, i);
    } else if (option == "--out") {
      arguments.out = valueAt(count, values, i);
    } else if (option == "--rounds") {
      arguments.settings.rounds = std::atoi(valueAt(count, values, i).c_str());
    } else if (option == "--measure") {
      arguments.measure = valueAt(count, values, i);
      arguments.argument = valueAt(count, values, i);
    } else if (option == "--brief") {
      beBrief(arguments);
    } else {
      arguments.filter = option;
    }
  }
  return arguments;
}

/// Whether a row is asked for: by its number, or by a part of its name.
bool isChosen(const Row& row, const std::string& filter) {
  return filter.empty() || row.number == filter || row.name.find(filter) != std::string::npos;
}

/// One row; what it throws leaves it out, so that the others still run.
bool runRow(Bench& bench, const Row& row) {
  try {
    bench.begin(row.number);
    row.run(bench);
    return true;
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "bench: row %s failed: %s\n", row.number.c_str(), failure.what());
    return false;
  }
}

int runRows(const Arguments& arguments, const qxbench::FontSets& fonts) {
  Bench bench(arguments.settings, fonts);
  const qxbench::Machine machine = qxbench::thisMachine();
  qxbench::printHead(machine, arguments.settings);
  bool whole = true;
  int ran = 0;
  for (const Row* row : qxbench::allRows()) {
    if (!isChosen(*row, arguments.filter)) continue;
    ++ran;
    whole = runRow(bench, *row) && whole;
  }
  if (ran == 0) std::fprintf(stderr, "bench: no row is named %s\n", arguments.filter.c_str());
  if (!arguments.out.empty() && !qxbench::writeResults(bench, machine, arguments.out)) return 1;
  // Work that differs from the peer's is a bug here or there: the tests want to hear of it.
  return ran == 0 || !whole || !bench.unequal().empty() ? 1 : 0;
}

}  // namespace

int main(int count, char** values) {
  const Arguments arguments = parse(count, values);
  const qxbench::FontSets fonts(arguments.fonts, arguments.scratch);
  if (arguments.measure.empty()) return runRows(arguments, fonts);
  return qxbench::measureHere(fonts, arguments.measure, arguments.argument) ? 0 : 1;
}
