#pragma once

#include <string>
#include <utility>
#include <vector>

namespace qxtest {

/// Encrypts as Type 1 fonts are (Adobe Type 1 Font Format, chapter 7), with a walk of its own.
std::string type1Encrypted(const std::string& plain, unsigned key);
inline constexpr unsigned kEexecKey = 55665;
inline constexpr unsigned kCharStringKey = 4330;

/// The bytes of a charstring: numbers from -107 to 107 are one byte each, operators as given.
std::string type1Number(int number);

/// Writes a Type 1 font program in code: clear text, encrypted private part, trailer.
///
/// Charstrings get four zero bytes ahead and are encrypted. Example:
/// `Type1Builder().glyph(".notdef", box).glyph("A", box).pfb()`.
class Type1Builder {
 public:
  /// A line of the clear text behind those that the font needs, such as "/Weight (Bold) def".
  Type1Builder& header(const std::string& line);
  /// "StandardEncoding", or an array of these (code, name) pairs.
  Type1Builder& encoding(const std::vector<std::pair<int, std::string>>& codes);
  Type1Builder& glyph(const std::string& name, const std::string& charString);
  /// The count that the CharStrings dictionary states, if not that of its glyphs.
  Type1Builder& count(const std::string& text);
  Type1Builder& lineEnd(const std::string& end);

  [[nodiscard]] std::string clearText() const;
  /// The private part as it is before encryption, with four bytes ahead.
  [[nodiscard]] std::string privatePart() const;
  /// 512 zeros and "cleartomark".
  [[nodiscard]] std::string trailer() const;
  [[nodiscard]] std::string pfa() const;
  [[nodiscard]] std::string pfb() const;

 private:
  std::vector<std::string> headers_;
  std::vector<std::pair<int, std::string>> codes_;
  std::vector<std::pair<std::string, std::string>> glyphs_;
  std::string count_;
  std::string lineEnd_ = "\n";
};

/// A segment of a font program in segments: mark, kind, length, bytes.
std::string type1Segment(int kind, const std::string& bytes);

/// A charstring that draws a box from (0, 0) and ends.
std::string type1Box(int width, int side);
/// A charstring that puts an accent over a base letter; codes of the standard encoding.
std::string type1Accent(int width, int base, int accent);

}  // namespace qxtest
