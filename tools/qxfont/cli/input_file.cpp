#include "qxfont/cli/input_file.h"

#include <fmt/format.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string_view>
#include <system_error>

#include "qxfont/cli/status.h"
#include "qxfont/cli/text.h"

namespace qxfont {

namespace {

// Texts are counted by 32-bit indexes.
constexpr std::size_t kLargestText = 1U << 30U;

/// A text in another encoding would be set as nonsense.
void requireUtf8(const std::string& text, const std::string& path) {
  if (isUtf8(text)) return;
  std::size_t line = 1;
  std::string_view rest = text;
  for (; isUtf8(rest.substr(0, rest.find('\n'))); ++line) rest.remove_prefix(rest.find('\n') + 1);
  throw ToolError(Status::wrongCall, fmt::format("{}:{}: this is no UTF-8", path, line));
}

}  // namespace

std::string readTextFile(const std::string& path) {
  std::error_code failed;
  std::ifstream in(path, std::ios::binary);
  if (!in || std::filesystem::is_directory(path, failed)) {
    throw ToolError(Status::wrongCall, "cannot read the text " + path);
  }
  std::string bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  if (in.bad() || bytes.size() > kLargestText) {
    throw ToolError(Status::wrongCall, "cannot read the text " + path);
  }
  requireUtf8(bytes, path);
  if (bytes.rfind("\xEF\xBB\xBF", 0) == 0) bytes.erase(0, 3);
  return bytes;
}

}  // namespace qxfont
