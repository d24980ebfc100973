#include "support/ttc_builder.h"

#include <numeric>

#include "support/be_bytes.h"

namespace qxtest {
namespace {

constexpr std::size_t kHeaderSize = 12;
constexpr std::size_t kOffsetSize = 4;

}  // namespace

TtcBuilder& TtcBuilder::tag(std::string_view tag) {
  tag_ = tag;
  return *this;
}

TtcBuilder& TtcBuilder::version(std::uint32_t version) {
  version_ = version;
  return *this;
}

TtcBuilder& TtcBuilder::member(SfntBuilder font) {
  members_.push_back(std::move(font));
  return *this;
}

TtcBuilder& TtcBuilder::listed(std::vector<std::size_t> places) {
  listed_ = std::move(places);
  return *this;
}

TtcBuilder& TtcBuilder::statedOffset(std::size_t index, std::uint32_t offset) {
  statedOffsets_.push_back({index, offset});
  return *this;
}

TtcBuilder& TtcBuilder::statedCount(std::uint32_t count) {
  statedCount_ = count;
  return *this;
}

std::vector<std::size_t> TtcBuilder::places() const {
  if (!listed_.empty()) return listed_;
  std::vector<std::size_t> all(members_.size());
  std::iota(all.begin(), all.end(), std::size_t{0});
  return all;
}

std::size_t TtcBuilder::offsetOf(std::size_t place) const {
  std::size_t offset = kHeaderSize + kOffsetSize * places().size();
  for (std::size_t i = 0; i < place; ++i) offset += members_.at(i).build().size();
  return offset;
}

std::vector<std::uint32_t> TtcBuilder::offsets() const {
  std::vector<std::uint32_t> all;
  for (const std::size_t place : places())
    all.push_back(static_cast<std::uint32_t>(offsetOf(place)));
  for (const auto& [index, offset] : statedOffsets_) all.at(index) = offset;
  return all;
}

std::string TtcBuilder::build() const {
  const std::vector<std::uint32_t> all = offsets();
  BeBytes out;
  out.text(tag_).u32(version_);
  out.u32(static_cast<std::uint32_t>(statedCount_ < 0 ? static_cast<std::int64_t>(all.size())
                                                      : statedCount_));
  for (const std::uint32_t offset : all) out.u32(offset);
  for (const SfntBuilder& member : members_)
    out.text(member.build(static_cast<std::uint32_t>(out.size())));
  return out.str();
}

}  // namespace qxtest
