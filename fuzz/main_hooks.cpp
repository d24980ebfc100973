// The door to libFuzzer: one program for all targets.
//   fuzz --list                      names them
//   fuzz --target=T --write-seeds=D  writes the seeds of T into folder D, and ends
//   fuzz --target=T ...              feeds T; what follows is for libFuzzer

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <string_view>

#include "target.h"

namespace qxfuzz {
namespace {

const Target* chosen = nullptr;

const Target* findTarget(std::string_view name) {
  for (const Target& target : targets())
    if (target.name == name) return &target;
  return nullptr;
}

void list() {
  for (const Target& target : targets())
    std::printf("%-12s %s\n", std::string(target.name).c_str(), std::string(target.what).c_str());
}

void writeSeeds(const std::string& folder) {
  int number = 0;
  for (const std::string& seed : chosen->seeds()) {
    std::ofstream file(folder + "/seed-" + std::to_string(number++), std::ios::binary);
    file.write(seed.data(), static_cast<std::streamsize>(seed.size()));
  }
}

/// The value behind "--name=", or empty.
std::string_view option(std::string_view argument, std::string_view name) {
  return argument.substr(0, name.size()) == name ? argument.substr(name.size())
                                                 : std::string_view();
}

void takeArgument(std::string_view argument) {
  if (argument == "--list") {
    list();
    std::exit(0);
  }
  const std::string_view name = option(argument, "--target=");
  if (!name.empty()) chosen = findTarget(name);
  const std::string_view folder = option(argument, "--write-seeds=");
  if (!folder.empty() && chosen != nullptr) {
    writeSeeds(std::string(folder));
    std::exit(0);
  }
}

}  // namespace
}  // namespace qxfuzz

extern "C" int LLVMFuzzerInitialize(int* count, char*** arguments);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerInitialize(int* count, char*** arguments) {
  for (int i = 1; i < *count; ++i) qxfuzz::takeArgument((*arguments)[i]);
  if (qxfuzz::chosen == nullptr) {
    std::fprintf(stderr, "fuzz: --target=NAME wants one of\n");
    qxfuzz::list();
    std::exit(2);
  }
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string input(data, data + size);
  qxfuzz::chosen->run(input);
  return 0;
}
