#pragma once

#include <array>
#include <istream>
#include <optional>
#include <string>

namespace QXFontService_NS::type1 {

/// What the clear text of a font program tells (Adobe Type 1 Font Format, chapter 2). Texts are
/// bytes as they stand there.
struct ProgramHeader {
  std::string familyName, fullName, weightName, fontName;
  int weight = 400;
  bool isFixedPitch = false;
  float italicAngle = 0, underlinePosition = 0, underlineThickness = 0;
  std::string encodingName;
  bool standardEncoding = true;
  bool customEncoding = false;
  std::array<float, 4> fontBBox{};  ///< left, bottom, right, top

  [[nodiscard]] float boxHeight() const { return fontBBox[3] - fontBBox[1]; }
};

/// Why a header cannot be read: an error code of font files and its detail.
struct HeaderFailure {
  int code;
  std::string detail;
};

/// Reads the header of a font program in text form. Keys count where they begin a line bare, so
/// that most fonts, which write "/FontName", leave all fields at their defaults: kept, since hosts
/// know such fonts by their metric files.
std::optional<HeaderFailure> readPfaHeader(std::istream& stream, ProgramHeader& header);

/// Reads the header of a font program in segments: its first segment, of text. Keys count behind a
/// slash at the beginning of a line.
std::optional<HeaderFailure> readPfbHeader(std::istream& stream, ProgramHeader& header);

}  // namespace QXFontService_NS::type1
