#include "qxfont/typeset/source_text.h"

#include <fmt/format.h>
#include <unicode/uchar.h>

#include <charconv>
#include <string_view>
#include <utility>

#include "qxfont/cli/status.h"
#include "qxfont/cli/text.h"

namespace qxfont {
namespace {

constexpr char16_t kSoftHyphen = 0x00AD;
constexpr std::string_view kFontLine = "#font";
constexpr std::string_view kBlanks = " \t\r";

std::string_view trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool isFontLine(std::string_view line) {
  if (line.substr(0, kFontLine.size()) != kFontLine) return false;
  return line.size() == kFontLine.size() ||
         kBlanks.find(line[kFontLine.size()]) != std::string_view::npos;
}

bool isWide(UChar32 character) {
  const int width = u_getIntPropertyValue(character, UCHAR_EAST_ASIAN_WIDTH);
  return width == U_EA_WIDE || width == U_EA_FULLWIDTH;
}

std::optional<double> numberOf(std::string_view text) {
  double value = 0;
  const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (failure != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

/// Puts paragraphs together line by line.
class Reader {
 public:
  Reader(std::string file, double size) : file_(std::move(file)), size_(size) {
    current_.size = size;
  }

  void take(std::string_view line) {
    ++line_;
    if (isFontLine(line)) {
      endParagraph();
      changeStyle(trimmed(line.substr(kFontLine.size())));
    } else if (trimmed(line).empty()) {
      endParagraph();
    } else {
      if (line.substr(0, 2) == "\\#") line.remove_prefix(1);
      append(unicode(trimmed(line)));
    }
  }

  std::vector<Paragraph> finish() {
    endParagraph();
    return std::move(paragraphs_);
  }

 private:
  void endParagraph() {
    if (!current_.text.isEmpty()) paragraphs_.push_back(current_);
    current_.text.remove();
  }

  void append(icu::UnicodeString line) {
    line.findAndReplace(icu::UnicodeString(kSoftHyphen), icu::UnicodeString());
    icu::UnicodeString& text = current_.text;
    if (!text.isEmpty() && !line.isEmpty()) {
      const bool wide = isWide(text.char32At(text.length() - 1)) && isWide(line.char32At(0));
      if (!wide) text.append(u' ');
    }
    text.append(line);
  }

  void changeStyle(std::string_view style) {
    current_.line = line_;
    current_.size = size_;
    const std::size_t blank = style.find_last_of(kBlanks);
    if (blank != std::string_view::npos) {
      if (const auto size = numberOf(style.substr(blank + 1))) {
        current_.size = checked(*size);
        style = trimmed(style.substr(0, blank));
      }
    }
    if (style.empty()) fail("#font needs a style", "a line is #font FONT[:WEIGHT][:italic] [SIZE]");
    try {
      current_.style = parseFontStyle(std::string(style));
    } catch (const ToolError& error) {
      fail(error.what(), error.hint());
    }
  }

  double checked(double size) const {
    if (!isSize(size)) fail(fmt::format("the size {} is not from 1 to 1000 points", size), {});
    return size;
  }

  [[noreturn]] void fail(const std::string& what, const std::string& hint) const {
    throw ToolError(Status::wrongCall, fmt::format("{}:{}: {}", file_, line_, what), hint);
  }

  std::string file_;
  double size_;
  int line_ = 0;
  Paragraph current_;
  std::vector<Paragraph> paragraphs_;
};

}  // namespace

bool isSize(double size) {
  return size >= kSmallestSize && size <= kLargestSize;
}

std::vector<Paragraph> readSourceText(const std::string& text, const std::string& file,
                                      double size) {
  Reader reader(file, size);
  std::string_view rest = text;
  for (std::size_t end = rest.find('\n'); end != std::string_view::npos; end = rest.find('\n')) {
    reader.take(rest.substr(0, end));
    rest.remove_prefix(end + 1);
  }
  reader.take(rest);
  return reader.finish();
}

}  // namespace qxfont
