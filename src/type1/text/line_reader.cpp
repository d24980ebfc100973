#include "type1/text/line_reader.h"

#include <algorithm>

namespace QXFontService_NS::type1 {
namespace {

constexpr std::size_t kBlockSize = 16 * 1024;
constexpr int kEnd = -1;

}  // namespace

bool LineReader::fill() {
  block_.resize(kBlockSize);
  stream_.read(block_.data(), static_cast<std::streamsize>(block_.size()));
  block_.resize(static_cast<std::size_t>(stream_.gcount()));
  position_ = 0;
  return !block_.empty();
}

int LineReader::get() {
  if (position_ >= block_.size() && !fill()) return kEnd;
  return static_cast<unsigned char>(block_[position_++]);
}

bool LineReader::next(std::string& line) {
  line.clear();
  int byte = get();
  if (byte == '\n' && afterCr_) byte = get();
  afterCr_ = false;
  if (byte == kEnd) return false;
  for (; byte != kEnd && byte != '\n' && byte != '\r'; byte = get())
    line.push_back(static_cast<char>(byte));
  afterCr_ = byte == '\r';
  return true;
}

std::string_view trimmed(std::string_view text) {
  const std::size_t begin = text.find_first_not_of(kBlanks);
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(kBlanks) - begin + 1);
}

std::string_view firstToken(std::string_view line, std::string_view& rest) {
  const std::size_t begin = std::min(line.find_first_not_of(kBlanks), line.size());
  const std::size_t end = std::min(line.find_first_of(kBlanks, begin), line.size());
  rest = line.substr(end);
  return line.substr(begin, end - begin);
}

}  // namespace QXFontService_NS::type1
