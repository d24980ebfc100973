#include "type1/program/program_header.h"

#include <array>
#include <cctype>
#include <cstdint>
#include <cstdio>
#include <string_view>
#include <vector>

#include "qxfontservice/error_codes.h"

#include "common/bytes/stream_read.h"
#include "type1/program/header_keys.h"
#include "type1/program/segment.h"
#include "type1/text/line_reader.h"

namespace QXFontService_NS::type1 {
namespace {

constexpr std::string_view kClearTextEnd = "currentfile";

bool isLetter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

/// The run of letters at the start of a text.
std::string_view letters(std::string_view text) {
  std::size_t end = 0;
  while (end < text.size() && isLetter(text[end])) ++end;
  return text.substr(0, end);
}

HeaderFailure badByte(const char* what, std::byte byte) {
  std::array<char, 3> digits{};
  std::snprintf(digits.data(), digits.size(), "%02X", std::to_integer<unsigned>(byte));
  return {FS_ERROR_FONT_FILE, std::string(what) + digits.data()};
}

bool takeLine(std::string_view line, ProgramHeader& header, bool& hasOwnCodes) {
  if (line.substr(0, 3) == "dup") hasOwnCodes = true;
  if (line.substr(0, 1) != "/") return true;
  line.remove_prefix(1);
  const std::string_view key = letters(line);
  return takeHeaderValue(ProgramForm::segments, key, line.substr(key.size()), header);
}

std::optional<HeaderFailure> takeClearText(std::string_view text, ProgramHeader& header) {
  bool hasOwnCodes = false;
  text = text.substr(0, text.find('\0'));
  while (!text.empty()) {
    const std::string_view line = text.substr(0, text.find_first_of("\r\n"));
    if (!takeLine(line, header, hasOwnCodes))
      return HeaderFailure{FS_ERROR_FONT_FILE, std::string(line)};
    text.remove_prefix(line.size());
    text.remove_prefix(std::min(text.find_first_not_of("\r\n"), text.size()));
  }
  if (hasOwnCodes) header.customEncoding = true;
  return std::nullopt;
}

}  // namespace

std::optional<HeaderFailure> readPfaHeader(std::istream& stream, ProgramHeader& header) {
  LineReader lines(stream);
  std::string line;
  while (lines.next(line)) {
    std::string_view value;
    const std::string_view key = firstToken(line, value);
    if (!isHeaderKey(key)) {
      if (line.find(kClearTextEnd) != std::string::npos) break;
      continue;
    }
    if (!takeHeaderValue(ProgramForm::text, key, value, header))
      return HeaderFailure{FS_ERROR_FONT_FILE, {}};
  }
  return std::nullopt;
}

std::optional<HeaderFailure> readPfbHeader(std::istream& stream, ProgramHeader& header) {
  std::array<std::byte, kSegmentHeaderSize> bytes{};
  if (!QXCommonNS::bytes::readExact(stream, 0, bytes)) return HeaderFailure{FS_ERROR_FONT_READ, {}};
  if (bytes[0] != kSegmentMark) return badByte("Header bad signature: ", bytes[0]);
  if (bytes[1] != kTextSegment) return badByte("Header bad segmentType: ", bytes[1]);
  const std::uint32_t length = segmentLength(bytes);
  const std::vector<std::byte> text =
      QXCommonNS::bytes::readBlock(stream, static_cast<std::int64_t>(bytes.size()), length);
  if (text.size() != length) return HeaderFailure{FS_ERROR_FONT_FILE, "SegmentData read error"};
  std::string clear;
  for (const std::byte byte : text) clear.push_back(static_cast<char>(byte));
  return takeClearText(clear, header);
}

}  // namespace QXFontService_NS::type1
