#include "qxfont/typeset/page_size.h"

#include <strings.h>

#include <array>

#include "qxfont/cli/status.h"

namespace qxfont {
namespace {

struct NamedSize {
  const char* name;
  double width;  // millimetres
  double height;
};

constexpr std::array kSizes = {NamedSize{"A3", 297, 420},       NamedSize{"A4", 210, 297},
                               NamedSize{"A5", 148, 210},       NamedSize{"A6", 105, 148},
                               NamedSize{"B5", 176, 250},       NamedSize{"Letter", 215.9, 279.4},
                               NamedSize{"Legal", 215.9, 355.6}};

constexpr double kPointsPerMillimetre = 72 / 25.4;

}  // namespace

PageSize pageSizeOf(const std::string& name) {
  for (const NamedSize& size : kSizes) {
    if (strcasecmp(size.name, name.c_str()) != 0) continue;
    return {size.width * kPointsPerMillimetre, size.height * kPointsPerMillimetre};
  }
  throw ToolError(Status::wrongCall, "there is no page '" + name + "'",
                  "pages: " + pageSizeNames());
}

std::string pageSizeNames() {
  std::string names;
  for (const NamedSize& size : kSizes) {
    names += (names.empty() ? "" : ", ") + std::string(size.name);
  }
  return names;
}

}  // namespace qxfont
