#include "qxfont/cli/input_file.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

#include "qxfont/cli/status.h"
#include "qxfont/cli/text.h"

namespace qxfont {

std::string readTextFile(const std::string& path) {
  std::error_code failed;
  std::ifstream in(path, std::ios::binary);
  if (!in || std::filesystem::is_directory(path, failed)) {
    throw ToolError(Status::wrongCall, "cannot read the text " + path);
  }
  std::string bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  if (in.bad()) throw ToolError(Status::wrongCall, "cannot read the text " + path);
  std::size_t at = 0;
  if (!isUtf8(bytes, at)) {
    const auto here = bytes.begin() + static_cast<std::ptrdiff_t>(at);
    throw ToolError(Status::wrongCall, fmt::format("{}:{}: this is no UTF-8", path,
                                                   1 + std::count(bytes.begin(), here, '\n')));
  }
  if (bytes.rfind("\xEF\xBB\xBF", 0) == 0) bytes.erase(0, 3);
  return bytes;
}

}  // namespace qxfont
