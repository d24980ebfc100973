#pragma once

#include <istream>
#include <string>
#include <string_view>

namespace QXFontService_NS::type1 {

/// A font program of text in its three parts.
struct TextProgram {
  std::string clearText;    ///< to the line that begins the private part; lines end in CR
  std::string privatePart;  ///< encrypted, as bytes
  std::string trailer;      ///< as it stands
};

/// All bytes of a program from where its stream stands.
std::string readWhole(std::istream& program);

/// Splits a program (Adobe Type 1 Font Format, 2.4). Without a line that ends in "currentfile
/// eexec" all of it is clear text. The trailer begins with the first line of five zero bytes.
TextProgram splitTextProgram(std::string_view program);

}  // namespace QXFontService_NS::type1
