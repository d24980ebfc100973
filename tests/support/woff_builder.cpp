#include "support/woff_builder.h"

#include <zlib.h>

#include <algorithm>
#include <numeric>

namespace qxtest {
namespace {

constexpr std::size_t kHeaderSize = 44;
constexpr std::size_t kEntrySize = 20;

std::size_t roundUp(std::size_t size, std::size_t unit) {
  return (size + unit - 1) / unit * unit;
}

std::uint32_t longAt(const std::string& bytes, std::size_t at) {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < 4; ++i)
    value = value << 8 | static_cast<unsigned char>(bytes.at(at + i));
  return value;
}

}  // namespace

std::string zlibBytes(std::string_view bytes) {
  uLongf length = compressBound(static_cast<uLong>(bytes.size()));
  std::vector<Bytef> out(length);
  const std::vector<Bytef> in(bytes.begin(), bytes.end());
  compress2(out.data(), &length, in.data(), static_cast<uLong>(in.size()), 6);
  return {out.begin(), out.begin() + static_cast<std::ptrdiff_t>(length)};
}

WoffBuilder WoffBuilder::of(const std::string& sfnt) {
  WoffBuilder builder;
  builder.flavor(longAt(sfnt, 0));
  const std::size_t count = longAt(sfnt, 4) >> 16;
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t record = 12 + 16 * i;
    const std::string tag = sfnt.substr(record, 4);
    const std::string bytes = sfnt.substr(longAt(sfnt, record + 8), longAt(sfnt, record + 12));
    if (zlibBytes(bytes).size() < bytes.size()) {
      builder.deflated(tag, bytes, longAt(sfnt, record + 4));
    } else {
      builder.raw(tag, bytes, longAt(sfnt, record + 4));
    }
  }
  return builder;
}

WoffBuilder& WoffBuilder::flavor(std::uint32_t flavor) {
  flavor_ = flavor;
  return *this;
}

WoffBuilder& WoffBuilder::totalSfntSize(std::uint32_t size) {
  totalSfntSize_ = size;
  return *this;
}

WoffBuilder& WoffBuilder::statedCount(unsigned count) {
  statedCount_ = static_cast<int>(count);
  return *this;
}

WoffBuilder& WoffBuilder::raw(std::string_view tag, std::string bytes, std::uint32_t checksum) {
  const auto length = static_cast<std::uint32_t>(bytes.size());
  return packed(tag, std::move(bytes), length, checksum);
}

WoffBuilder& WoffBuilder::packed(std::string_view tag, std::string bytes, std::uint32_t origLength,
                                 std::uint32_t checksum) {
  tables_.push_back({std::string(tag), std::move(bytes), origLength, checksum});
  return *this;
}

WoffBuilder& WoffBuilder::deflated(std::string_view tag, std::string_view bytes,
                                   std::uint32_t checksum) {
  return packed(tag, zlibBytes(bytes), static_cast<std::uint32_t>(bytes.size()), checksum);
}

WoffBuilder& WoffBuilder::aligned(std::size_t unit) {
  unit_ = unit;
  return *this;
}

WoffBuilder& WoffBuilder::reversed() {
  reversed_ = true;
  return *this;
}

std::size_t WoffBuilder::headerSize() const {
  return kHeaderSize + kEntrySize * tables_.size();
}

std::vector<std::size_t> WoffBuilder::order() const {
  std::vector<std::size_t> all(tables_.size());
  std::iota(all.begin(), all.end(), std::size_t{0});
  if (reversed_) std::reverse(all.begin(), all.end());
  return all;
}

std::vector<std::size_t> WoffBuilder::offsets() const {
  std::vector<std::size_t> all(tables_.size());
  std::size_t at = headerSize();
  for (const std::size_t index : order()) {
    all[index] = at;
    at = roundUp(at + tables_[index].bytes.size(), unit_);
  }
  return all;
}

std::uint32_t WoffBuilder::sfntSize() const {
  std::size_t size = 12 + 16 * tables_.size();
  for (const Table& table : tables_) size += roundUp(table.origLength, 4);
  return static_cast<std::uint32_t>(size);
}

BeBytes WoffBuilder::bytes() const {
  const std::vector<std::size_t> at = offsets();
  BeBytes out;
  out.text("wOFF").u32(flavor_).label("length").u32(0);
  out.u16(statedCount_ < 0 ? static_cast<unsigned>(tables_.size())
                           : static_cast<unsigned>(statedCount_));
  out.u16(0).label("totalSfntSize");
  out.u32(totalSfntSize_ < 0 ? sfntSize() : static_cast<std::uint32_t>(totalSfntSize_));
  out.u16(1).u16(0).zeros(20);
  for (std::size_t i = 0; i < tables_.size(); ++i)
    out.label(std::to_string(i))
        .tag(tables_[i].tag)
        .u32(static_cast<std::uint32_t>(at[i]))
        .u32(static_cast<std::uint32_t>(tables_[i].bytes.size()))
        .u32(tables_[i].origLength)
        .u32(tables_[i].checksum);
  for (const std::size_t index : order()) out.text(tables_[index].bytes).align(unit_);
  out.patchU32("length", static_cast<std::uint32_t>(out.size()));
  return out;
}

}  // namespace qxtest
