#include "qxfont/html/css_grey.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

namespace qxfont {

std::string cssGrey(double value) {
  constexpr double kWhite = 255;
  const int part = static_cast<int>(std::lround(std::clamp(value, 0.0, 1.0) * kWhite));
  return fmt::format("#{0:02x}{0:02x}{0:02x}", part);
}

}  // namespace qxfont
