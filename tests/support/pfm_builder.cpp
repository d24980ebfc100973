#include "support/pfm_builder.h"

#include <cstddef>

namespace qxtest {
namespace {

constexpr std::size_t kHeader = 117, kExtension = 30, kTextMetrics = 52;

void put(std::string& bytes, std::size_t at, unsigned value, unsigned size) {
  for (unsigned i = 0; i < size; ++i) bytes[at + i] = static_cast<char>(value >> (8 * i) & 0xFF);
}

std::string words(const std::vector<unsigned>& values) {
  std::string bytes(values.size() * 2, '\0');
  for (std::size_t i = 0; i < values.size(); ++i) put(bytes, 2 * i, values[i], 2);
  return bytes;
}

}  // namespace

std::string PfmBuilder::build() const {
  std::string bytes(kHeader + kExtension, '\0');
  put(bytes, 0, 0x100, 2);
  bytes.replace(6, copyright.size(), copyright);
  put(bytes, 74, ascent, 2);
  put(bytes, 76, internalLeading, 2);
  bytes[80] = italic ? 1 : 0;
  put(bytes, 83, weight, 2);
  put(bytes, 85, charSet, 1);
  put(bytes, 90, pitchAndFamily, 1);
  put(bytes, 91, avgWidth, 2);
  put(bytes, 93, maxWidth, 2);
  put(bytes, 95, firstChar, 1);
  put(bytes, 96, lastChar, 1);
  const auto end = [&] { return static_cast<unsigned>(bytes.size()); };
  if (hasTextMetrics) {
    put(bytes, kHeader + 2, end(), 4);
    std::string metrics(kTextMetrics, '\0');
    put(metrics, 6, masterHeight, 2);
    put(metrics, 16, xHeight, 2);
    put(metrics, 48, static_cast<unsigned>(kernPairs.size()), 2);
    bytes += metrics;
  }
  if (hasDevice) {
    put(bytes, 101, end(), 4);
    bytes += device + '\0' + face + '\0' + font + '\0';
  }
  if (hasWidths) {
    put(bytes, kHeader + 6, end(), 4);
    bytes += words(widths);
  }
  if (!kernPairs.empty()) {
    put(bytes, kHeader + 14, end(), 4);
    bytes += words({static_cast<unsigned>(kernPairs.size())});
    for (const auto& [pair, value] : kernPairs) {
      bytes += static_cast<char>(pair.first);
      bytes += static_cast<char>(pair.second);
      bytes += words({static_cast<unsigned>(value) & 0xFFFF});
    }
  }
  return bytes;
}

}  // namespace qxtest
