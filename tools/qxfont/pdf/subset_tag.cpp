#include "qxfont/pdf/subset_tag.h"

#include <cstdint>

namespace qxfont {
namespace {

/// FNV-1a.
class Hash {
 public:
  void add(unsigned byte) { value_ = (value_ ^ byte) * 0x100000001B3U; }
  [[nodiscard]] std::uint64_t value() const { return value_; }

 private:
  std::uint64_t value_ = 0xCBF29CE484222325U;
};

}  // namespace

std::string subsetTag(const std::string& name, const std::vector<unsigned short>& gids) {
  Hash hash;
  for (const char c : name) hash.add(static_cast<unsigned char>(c));
  for (const unsigned short gid : gids) {
    hash.add(gid >> 8U);
    hash.add(gid & 0xFFU);
  }
  std::string tag;
  for (std::uint64_t rest = hash.value(); tag.size() < 6; rest /= 26) {
    tag += static_cast<char>('A' + static_cast<char>(rest % 26));
  }
  return tag;
}

}  // namespace qxfont
