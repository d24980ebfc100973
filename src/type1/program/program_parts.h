#pragma once

#include <istream>
#include <string>

namespace QXFontService_NS::type1 {

/// The parts of a font program that define it.
struct ProgramParts {
  std::string clearText;
  std::string privatePart;  ///< decrypted, without the random bytes ahead
};

/// Takes a program of either form apart: the clear text and what is encrypted, of segments all
/// binary ones that follow. What is not there is empty.
ProgramParts readProgramParts(std::istream& program);

}  // namespace QXFontService_NS::type1
