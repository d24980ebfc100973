#pragma once

#include <span>

namespace QXFontService_NS::pool {

/// A range of code points that a Unicode subset bit stands for.
struct UnicodeSubsetRange {
  int bit;
  int first;
  int last;
};

/// The ranges of OpenType `OS/2`, ulUnicodeRange1 to 4, in code point order; ranges of one bit that
/// touch are joined, split ones are rows of their own.
std::span<const UnicodeSubsetRange> unicodeSubsetRanges();

}  // namespace QXFontService_NS::pool
