#include "harness/own_process.h"

#include <cstdio>
#include <filesystem>
#include <map>
#include <memory>

namespace qxbench {
namespace {

std::map<std::string, OwnProcess::Measure>& measures() {
  static std::map<std::string, OwnProcess::Measure> all;
  return all;
}

std::string quoted(const std::string& text) {
  return " '" + text + "'";
}

/// The same fonts, and a scratch folder below ours: a bench makes its own anew.
std::string commandOf(const FontSets& fonts, const std::string& name, const std::string& argument) {
  return quoted(std::filesystem::read_symlink("/proc/self/exe").string()) + " --fonts" +
         quoted(fonts.fetched()) + " --scratch" + quoted(fonts.scratch() + "/own-process") +
         " --measure" + quoted(name) + quoted(argument);
}

}  // namespace

OwnProcess::OwnProcess(const char* name, Measure take) : name_(name) {
  measures()[name_] = take;
}

double OwnProcess::measure(const Bench& bench, const std::string& argument) const {
  const std::string command = commandOf(bench.fonts(), name_, argument);
  const std::unique_ptr<FILE, int (*)(FILE*)> output(popen(command.c_str(), "r"), pclose);
  double figure = 0;
  if (output == nullptr || std::fscanf(output.get(), "%lf", &figure) != 1) return 0;
  return figure;
}

bool measureHere(const FontSets& fonts, const std::string& name, const std::string& argument) {
  const auto found = measures().find(name);
  if (found == measures().end()) return false;
  std::printf("%.0f\n", found->second(fonts, argument));
  return true;
}

}  // namespace qxbench
