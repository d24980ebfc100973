#pragma once

#include <string>

namespace QXFontService_NS::type1 {

// The encryption of Type 1 fonts (Adobe Type 1 Font Format, chapter 7), in place. The random bytes
// at the beginning stay where they are.

/// The private part of a font program.
void decryptEexec(std::string& bytes);
void encryptEexec(std::string& bytes);

/// A charstring or a subroutine of the private part.
void decryptCharString(std::string& bytes);

}  // namespace QXFontService_NS::type1
