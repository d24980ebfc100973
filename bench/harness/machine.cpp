#include "harness/machine.h"

#include <fontconfig/fontconfig.h>
#include <ft2build.h>
#include FT_FREETYPE_H
#include <hb.h>
#include <sys/utsname.h>
#include <zlib.h>

#include <cstdlib>
#include <fstream>
#include <thread>

namespace qxbench {
namespace {

std::string processorName() {
  std::ifstream file("/proc/cpuinfo");
  for (std::string line; std::getline(file, line);) {
    const auto colon = line.find(": ");
    if (line.rfind("model name", 0) == 0 && colon != std::string::npos)
      return line.substr(colon + 2);
  }
  return "unknown";
}

std::string systemName() {
  utsname names{};
  if (uname(&names) != 0) return "unknown";
  return std::string(names.sysname) + " " + names.release;
}

std::string freeTypeVersion() {
  FT_Library library = nullptr;
  if (FT_Init_FreeType(&library) != 0) return "unknown";
  int major = 0;
  int minor = 0;
  int patch = 0;
  FT_Library_Version(library, &major, &minor, &patch);
  FT_Done_FreeType(library);
  return std::to_string(major) + "." + std::to_string(minor) + "." + std::to_string(patch);
}

std::string fontconfigVersion() {
  const int version = FcGetVersion();
  return std::to_string(version / 10000) + "." + std::to_string(version / 100 % 100) + "." +
         std::to_string(version % 100);
}

}  // namespace

Machine thisMachine() {
  Machine machine;
  machine.processor = processorName();
  machine.cores = static_cast<int>(std::thread::hardware_concurrency());
  if (getloadavg(&machine.load, 1) != 1) machine.load = 0;
  machine.system = systemName();
#ifdef __clang__
  machine.compiler = "Clang " __clang_version__;
#else
  machine.compiler = "GCC " __VERSION__;
#endif
#ifndef NDEBUG
  machine.compiler += ", not optimised";
#endif
  return machine;
}

std::vector<PeerVersion> peerVersions() {
  return {{"fontconfig", fontconfigVersion()},
          {"FreeType", freeTypeVersion()},
          {"HarfBuzz", hb_version_string()},
          {"zlib", zlibVersion()}};
}

}  // namespace qxbench
