#include "qxfont/embed/type1_page.h"

#include <fmt/format.h>

#include <cstddef>
#include <iterator>
#include <map>
#include <sstream>
#include <string_view>

#include "qxcommon/mem_stream.h"
#include "qxfontservice/ext/type1_segments.h"

#include "qxfont/cli/status.h"
#include "qxfont/cli/text.h"

namespace qxfont {
namespace {

using QXCommonNS::QXMemStream;
using QXFontService_NS::FS_FontInfo;

constexpr std::size_t kBlock = 8192;
constexpr std::size_t kBytesOfLine = 32;  // as hexadecimal digits
constexpr std::size_t kZeroLines = 8;     // that a private part is closed by

std::string bytesOf(QXMemStream& stream) {
  stream.clear();
  stream.seekg(0);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

/// Lets the font write itself into the page.
template <class Write>
Type1Page written(const FS_FontInfo& font, unsigned char number, Write&& write) {
  Type1Page page;
  page.page = number;
  QXMemStream stream(nullptr, kBlock, false, true);
  if (!write(stream, page.lengths[0], page.lengths[1], page.lengths[2])) {
    throw ToolError(Status::badFont,
                    fmt::format("the font program of {} is damaged: it does not give its glyphs",
                                utf8(font.getFontFileName().getLocalPath(true))));
  }
  page.program = bytesOf(stream);
  return page;
}

Type1Page onePage(const FS_FontInfo& font, unsigned char number, const std::string& codes) {
  const auto count = static_cast<int>(codes.size());
  return written(font, number, [&](QXMemStream& stream, int& one, int& two, int& three) {
    return font.getType1EmbedFont(number, codes.data(), count, stream, one, two, three);
  });
}

/// The three parts of a program, one behind the other.
struct Parts {
  std::string_view clearText, privatePart, trailer;
};

Parts partsOf(std::string_view bytes, const std::array<int, 3>& lengths) {
  const auto first = static_cast<std::size_t>(lengths[0]);
  const auto second = static_cast<std::size_t>(lengths[1]);
  return {bytes.substr(0, first), bytes.substr(first, second), bytes.substr(first + second)};
}

std::string hexLines(std::string_view bytes) {
  std::string lines;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    lines += fmt::format("{:02x}", static_cast<unsigned char>(bytes[i]));
    if (i + 1 == bytes.size() || (i + 1) % kBytesOfLine == 0) lines += '\n';
  }
  return lines;
}

/// What closes a private part, for a program that leaves it to its reader.
std::string usualTrailer() {
  std::string text;
  for (std::size_t i = 0; i < kZeroLines; ++i) text += std::string(kBytesOfLine * 2, '0') + '\n';
  return text + "cleartomark\n";
}

}  // namespace

std::vector<Type1Page> type1Pages(const FS_FontInfo& font,
                                  const std::vector<unsigned short>& codes) {
  std::map<unsigned char, std::string> codesByPage;
  for (const unsigned short code : codes)
    codesByPage[static_cast<unsigned char>(code >> 8)] += static_cast<char>(code & 0xFF);
  std::vector<Type1Page> pages;
  for (const auto& [number, ofPage] : codesByPage) pages.push_back(onePage(font, number, ofPage));
  return pages;
}

Type1Page wholeType1(const FS_FontInfo& font) {
  return written(font, 0, [&](QXMemStream& stream, int& one, int& two, int& three) {
    return font.getType1FontStream(stream, one, two, three);
  });
}

std::string withoutSegments(const Type1Page& page) {
  std::istringstream program(page.program);
  QXMemStream bare(nullptr, kBlock, false, true);
  std::array<int, 3> lengths{};
  if (QXFontService_NS::ext::removeType1Segments(program, bare, lengths[0], lengths[1],
                                                 lengths[2]) &&
      lengths == page.lengths) {
    return bytesOf(bare);
  }
  throw ToolError(Status::badFont, "a font program is not in three segments");
}

std::string asPostScript(const Type1Page& page) {
  const std::string bare = withoutSegments(page);
  const Parts parts = partsOf(bare, page.lengths);
  std::string text(parts.clearText);
  text += hexLines(parts.privatePart);
  text += parts.trailer.empty() ? usualTrailer() : std::string(parts.trailer);
  if (text.back() != '\n') text += '\n';
  return text;
}

std::string definedName(const Type1Page& page) {
  constexpr std::string_view kKey = "/FontName";
  const std::string bare = withoutSegments(page);
  const std::string_view clearText = partsOf(bare, page.lengths).clearText;
  const std::size_t key = clearText.find(kKey);
  if (key == std::string_view::npos) return {};
  const std::size_t slash = clearText.find('/', key + kKey.size());
  if (slash == std::string_view::npos) return {};
  const std::size_t end = clearText.find_first_of(" \t\r\n/{}[]()<>%", slash + 1);
  if (end == std::string_view::npos) return {};
  return std::string(clearText.substr(slash + 1, end - slash - 1));
}

}  // namespace qxfont
