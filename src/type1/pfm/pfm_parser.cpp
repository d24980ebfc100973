#include "type1/pfm/pfm_parser.h"

#include <array>
#include <cstddef>
#include <span>

#include "common/bytes/stream_read.h"

namespace QXFontService_NS::type1 {
namespace {

using QXCommonNS::bytes::readExact;
using QXCommonNS::bytes::readUpTo;

constexpr const char* kHeaderError = "";
constexpr const char* kExtensionError = "Extension read error";
constexpr const char* kTextMetricsError = "Extension Text Metrics read error";
constexpr const char* kPostScriptError = "PostScript Information read error";
constexpr const char* kWidthsError = "Extent Table read error";
constexpr const char* kKernError = "Pair Kerning Table read error";

constexpr std::size_t kHeaderSize = 117;
constexpr int kFirstChar = 32;
constexpr int kLastChar = 255;

/// Little-endian fields at odd places, as the format has them.
class Fields {
 public:
  explicit Fields(std::span<const std::byte> bytes) : bytes_(bytes) {}

  [[nodiscard]] std::uint8_t u8(std::size_t at) const {
    return std::to_integer<std::uint8_t>(bytes_[at]);
  }
  [[nodiscard]] std::uint16_t u16(std::size_t at) const {
    return static_cast<std::uint16_t>(u8(at) | u8(at + 1) << 8);
  }
  [[nodiscard]] std::uint32_t u32(std::size_t at) const {
    return u16(at) | std::uint32_t{u16(at + 2)} << 16;
  }
  [[nodiscard]] float length(std::size_t at) const { return static_cast<float>(u16(at)); }
  /// Text up to a zero, at most `size` bytes.
  [[nodiscard]] std::string text(std::size_t at, std::size_t size) const {
    std::string made;
    for (std::size_t i = at; i < at + size && u8(i) != 0; ++i)
      made.push_back(static_cast<char>(u8(i)));
    return made;
  }

 private:
  std::span<const std::byte> bytes_;
};

/// Where the tables stand; 0 for one that is missing.
struct Places {
  std::uint32_t device = 0;
  std::uint32_t textMetrics = 0;
  std::uint32_t widths = 0;
  std::uint32_t kernPairs = 0;
  std::uint16_t kernPairCount = 0;
};

class PfmReader {
 public:
  PfmReader(std::istream& stream, PfmMetrics& metrics) : stream_(stream), metrics_(metrics) {}

  const char* read(bool correctsRange) {
    if (!readHeader(correctsRange)) return kHeaderError;
    if (!readExtension()) return kExtensionError;
    if (places_.textMetrics != 0 && !readTextMetrics()) return kTextMetricsError;
    if (places_.device != 0 && !readPostScriptNames()) return kPostScriptError;
    if (places_.widths != 0 && !readWidths()) return kWidthsError;
    if (places_.kernPairCount != 0 && !readKernPairs()) return kKernError;
    return nullptr;
  }

 private:
  bool readHeader(bool correctsRange) {
    std::array<std::byte, kHeaderSize> bytes{};
    if (!readExact(stream_, 0, bytes)) return false;
    const Fields header{bytes};
    metrics_.copyright = header.text(6, 60);
    metrics_.ascent = header.length(74);
    metrics_.internalLeading = header.length(76);
    metrics_.italic = header.u8(80) != 0;
    metrics_.weight = header.u16(83);
    metrics_.charSet = header.u8(85);
    metrics_.pixWidth = header.u16(86);
    metrics_.pixHeight = header.u16(88);
    metrics_.pitchAndFamily = header.u8(90);
    metrics_.avgWidth = header.length(91);
    metrics_.maxWidth = header.length(93);
    metrics_.firstChar = header.u8(95);
    metrics_.lastChar = header.u8(96);
    metrics_.breakChar = header.u8(98);
    places_.device = header.u32(101);
    if (correctsRange) correctRange();
    return true;
  }

  /// Both tests look at the range as it was read.
  void correctRange() {
    const bool wrongLast = metrics_.lastChar <= metrics_.firstChar;
    metrics_.firstChar = kFirstChar;
    if (wrongLast) metrics_.lastChar = kLastChar;
  }

  bool readExtension() {
    std::array<std::byte, 30> bytes{};
    if (!readExact(stream_, kHeaderSize, bytes)) return false;
    const Fields extension{bytes};
    places_.textMetrics = extension.u32(2);
    places_.widths = extension.u32(6);
    places_.kernPairs = extension.u32(14);
    return true;
  }

  bool readTextMetrics() {
    std::array<std::byte, 52> bytes{};
    if (!readExact(stream_, places_.textMetrics, bytes)) return false;
    const Fields fields{bytes};
    const float masterHeight = fields.length(6);
    metrics_.xHeightRatio = masterHeight == 0 ? 0 : fields.length(16) / masterHeight;
    places_.kernPairCount = fields.u16(48);
    return true;
  }

  bool readPostScriptNames() {
    std::int64_t position = places_.device;
    for (std::string* name : {&metrics_.deviceName, &metrics_.faceName, &metrics_.fontName})
      if (!readZeroEnded(position, *name)) return false;
    return true;
  }

  /// Reads a text up to its zero, which the file must have, and moves behind it.
  bool readZeroEnded(std::int64_t& position, std::string& text) {
    for (std::array<std::byte, 256> block{};;) {
      const std::size_t size = readUpTo(stream_, position, block);
      for (std::size_t i = 0; i < size; ++i) {
        ++position;
        if (block[i] == std::byte{0}) return true;
        text.push_back(static_cast<char>(block[i]));
      }
      if (size < block.size()) return false;
    }
  }

  bool readWidths() {
    if (metrics_.lastChar < metrics_.firstChar) return true;
    const std::size_t count = std::size_t{metrics_.lastChar} - metrics_.firstChar + 1;
    std::vector<std::byte> bytes(count * 2);
    if (!readExact(stream_, places_.widths, bytes)) return false;
    const Fields fields{bytes};
    for (std::size_t i = 0; i < count; ++i) metrics_.widths.push_back(fields.u16(2 * i));
    return true;
  }

  bool readKernPairs() {
    std::vector<std::byte> bytes(std::size_t{places_.kernPairCount} * 4 + 2);
    if (!readExact(stream_, places_.kernPairs, bytes)) return false;
    const Fields fields{bytes};
    for (std::size_t at = 2; at < bytes.size(); at += 4)
      metrics_.kernPairs.emplace(std::pair(fields.u8(at), fields.u8(at + 1)),
                                 static_cast<std::int16_t>(fields.u16(at + 2)));
    return true;
  }

  std::istream& stream_;
  PfmMetrics& metrics_;
  Places places_;
};

}  // namespace

std::optional<const char*> readPfm(std::istream& stream, bool correctsRange, PfmMetrics& metrics) {
  const char* const error = PfmReader(stream, metrics).read(correctsRange);
  if (error == nullptr) return std::nullopt;
  return error;
}

}  // namespace QXFontService_NS::type1
