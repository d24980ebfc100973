#include "qxfont/cli/output.h"

#include <fmt/format.h>
#include <unicode/uchar.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "qxfont/cli/status.h"
#include "qxfont/cli/text.h"

namespace qxfont {
namespace {

constexpr const char* kBold = "\033[1m";
constexpr const char* kPlain = "\033[0m";

/// Columns on a terminal: wide characters take two.
std::size_t widthOf(const std::string& text) {
  const icu::UnicodeString units = unicode(text);
  std::size_t width = 0;
  for (int i = 0; i < units.length(); i = units.moveIndex32(i, 1)) {
    const int kind = u_getIntPropertyValue(units.char32At(i), UCHAR_EAST_ASIAN_WIDTH);
    width += kind == U_EA_WIDE || kind == U_EA_FULLWIDTH ? 2 : 1;
  }
  return width;
}

/// Removes a file unless it was kept.
class PartFile {
 public:
  explicit PartFile(std::string path) : path_(std::move(path)) {}
  ~PartFile() {
    std::error_code ignored;
    if (!kept_) std::filesystem::remove(path_, ignored);
  }
  PartFile(const PartFile&) = delete;
  PartFile& operator=(const PartFile&) = delete;

  [[nodiscard]] const std::string& path() const { return path_; }
  void moveTo(const std::string& target) {
    std::error_code failed;
    std::filesystem::rename(path_, target, failed);
    if (failed) throw ToolError(Status::notWritten, "cannot write " + target);
    kept_ = true;
  }

 private:
  std::string path_;
  bool kept_ = false;
};

}  // namespace

void printJson(const Json& json) {
  // What is no UTF-8 in a file name must not keep the rest from being told.
  fmt::print("{}\n", json.dump(1, ' ', false, Json::error_handler_t::replace));
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

void TextTable::print() const {
  std::vector<std::size_t> widths(rows_.front().size());
  for (const auto& row : rows_) {
    for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], widthOf(row[i]));
  }
  const bool colour = takesColour();
  for (const auto& row : rows_) {
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i) {
      line += row[i];
      if (i + 1 < row.size()) line.append(widths[i] - widthOf(row[i]) + 2, ' ');
    }
    const bool title = &row == &rows_.front() && colour;
    fmt::print("{}{}{}\n", title ? kBold : "", line, title ? kPlain : "");
  }
}

void writeOutput(const std::string& path, const std::function<void(const std::string&)>& write) {
  PartFile part(fmt::format("{}.part{}", path, getpid()));
  write(part.path());
  part.moveTo(path);
}

void writeBytes(const std::string& path, const std::string& bytes) {
  writeOutput(path, [&](const std::string& part) {
    std::ofstream out(part, std::ios::binary);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!out.flush()) throw ToolError(Status::notWritten, "cannot write " + path);
  });
}

}  // namespace qxfont
