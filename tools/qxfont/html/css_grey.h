#pragma once

#include <string>

namespace qxfont {

/// A grey as style sheets and SVG write it: "#808080" in the middle between 0, black, and 1.
std::string cssGrey(double value);

}  // namespace qxfont
