#include "qxfont/cli/output.h"

#include <fmt/format.h>
#include <unicode/uchar.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <system_error>

#include "qxfont/cli/text.h"

namespace qxfont {
namespace {

constexpr const char* kBold = "\033[1m";
constexpr const char* kPlain = "\033[0m";

std::size_t columnsOfCharacter(UChar32 character) {
  const int kind = u_charType(character);
  if (kind == U_NON_SPACING_MARK || kind == U_ENCLOSING_MARK || kind == U_FORMAT_CHAR) return 0;
  const int width = u_getIntPropertyValue(character, UCHAR_EAST_ASIAN_WIDTH);
  return width == U_EA_WIDE || width == U_EA_FULLWIDTH ? 2 : 1;
}

}  // namespace

std::size_t columnsOf(const std::string& text) {
  const icu::UnicodeString units = unicode(text);
  std::size_t width = 0;
  for (int i = 0; i < units.length(); i = units.moveIndex32(i, 1)) {
    width += columnsOfCharacter(units.char32At(i));
  }
  return width;
}

std::string jsonText(const Json& json) {
  return json.dump(1, ' ', false, Json::error_handler_t::replace);
}

void printJson(const Json& json) {
  fmt::print("{}\n", jsonText(json));
}

void printRows(const Json& rows, const OutputOptions& options) {
  if (!options.ndjson) return printJson(rows);
  for (const Json& row : rows) {
    fmt::print("{}\n", row.dump(-1, ' ', false, Json::error_handler_t::replace));
  }
}

bool takesColour() {
  const char* off = std::getenv("NO_COLOR");
  return isatty(STDOUT_FILENO) != 0 && (off == nullptr || *off == '\0');
}

void TextTable::add(std::vector<std::string> row) {
  for (std::string& cell : row) cell = shown(cell);
  rows_.push_back(std::move(row));
}

void TextTable::print() const {
  std::vector<std::size_t> widths(rows_.front().size());
  for (const auto& row : rows_) {
    for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], columnsOf(row[i]));
  }
  const bool colour = takesColour();
  for (const auto& row : rows_) {
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i) {
      line += row[i];
      if (i + 1 < row.size()) line.append(widths[i] - columnsOf(row[i]) + 2, ' ');
    }
    const bool title = &row == &rows_.front() && colour;
    fmt::print("{}{}{}\n", title ? kBold : "", line, title ? kPlain : "");
  }
}

Json number(double value) {
  if (!std::isfinite(value)) return 0;
  if (value == std::floor(value) && std::fabs(value) < 1e15) return static_cast<long long>(value);
  return std::stod(fmt::format("{}", static_cast<float>(value)));
}

void flushOutput() {
  if (std::fflush(stdout) != 0) {
    throw std::system_error(errno, std::generic_category(), "cannot write standard output");
  }
}

}  // namespace qxfont
