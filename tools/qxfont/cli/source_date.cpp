#include "qxfont/cli/source_date.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <string_view>

#include "qxfont/cli/status.h"

namespace qxfont {
namespace {

constexpr const char* kVariable = "SOURCE_DATE_EPOCH";
// The last second of the year 9999, which is the last that PDF can write.
constexpr std::int64_t kLastSecond = 253402300799;

}  // namespace

std::string sourceDate() {
  const char* value = std::getenv(kVariable);
  if (value == nullptr || *value == '\0') return {};
  const std::string_view text = value;
  std::int64_t seconds = -1;
  const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), seconds);
  const bool whole = failure == std::errc() && end == text.data() + text.size();
  if (!whole || seconds < 0 || seconds > kLastSecond) {
    throw ToolError(Status::wrongCall, std::string(kVariable) + " is no time: " + value);
  }
  const std::time_t time = seconds;
  std::tm parts{};
  gmtime_r(&time, &parts);
  std::array<char, 32> date{};
  std::strftime(date.data(), date.size(), "D:%Y%m%d%H%M%SZ", &parts);
  return date.data();
}

}  // namespace qxfont
