#pragma once

#include <string>

namespace qxfont {

/// A number as PDF writes it: at most three decimals, no exponent, no zeros at the end.
std::string pdfNumber(double value);

}  // namespace qxfont
