#pragma once

#include <cstddef>
#include <istream>
#include <string>
#include <string_view>

namespace QXFontService_NS::type1 {

/// Reads a text file line by line. LF, CR LF and CR each end a line: metric files of all three
/// kinds are about.
class LineReader {
 public:
  /// @param stream read from where it stands; it outlives the reader.
  explicit LineReader(std::istream& stream) : stream_(stream) {}

  /// The next line, without its end; false at the end of the stream. A last line needs no end.
  bool next(std::string& line);

 private:
  int get();
  bool fill();

  std::istream& stream_;
  std::string block_;
  std::size_t position_ = 0;
  bool afterCr_ = false;
};

/// White space of metric files and font programs.
inline constexpr std::string_view kBlanks = " \t\r\n";

/// A text without the blanks at both ends.
std::string_view trimmed(std::string_view text);

/// The first token of a line; `rest` is what stands behind it.
std::string_view firstToken(std::string_view line, std::string_view& rest);

}  // namespace QXFontService_NS::type1
