#pragma once

#include <array>

namespace QXFontService_NS::type1 {

/// Operators below 32 by number. Names of Type 2 stand among them: dumps of charstrings are read
/// with this one table. 12, the escape, has no name.
extern const std::array<const char*, 32> kOperatorNames;

struct EscapeName {
  int number;
  const char* name;
};

/// Operators of two bytes, by the second.
extern const std::array<EscapeName, 9> kEscapeNames;

}  // namespace QXFontService_NS::type1
