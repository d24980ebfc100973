#include "support/dfont_builder.h"

#include <algorithm>

namespace qxtest {
namespace {

constexpr unsigned kDataOffset = 256;
constexpr unsigned kHeaderSize = 16;
constexpr unsigned kTypeListOffset = 28;
constexpr unsigned kReferenceSize = 12;
constexpr unsigned kNoName = 0xFFFF;
constexpr unsigned kFirstId = 128;

}  // namespace

DfontBuilder& DfontBuilder::resource(std::string_view type, std::string data) {
  const auto length = static_cast<std::uint32_t>(data.size());
  resources_.push_back({std::string(type), std::move(data), length});
  return *this;
}

DfontBuilder& DfontBuilder::statedLength(std::uint32_t length) {
  resources_.back().statedLength = length;
  return *this;
}

std::vector<std::string> DfontBuilder::types() const {
  std::vector<std::string> all;
  for (const Resource& resource : resources_)
    if (std::find(all.begin(), all.end(), resource.type) == all.end()) all.push_back(resource.type);
  return all;
}

unsigned DfontBuilder::countOf(const std::string& type) const {
  return static_cast<unsigned>(
      std::count_if(resources_.begin(), resources_.end(),
                    [&](const Resource& resource) { return resource.type == type; }));
}

BeBytes DfontBuilder::data() const {
  BeBytes out;
  for (const Resource& resource : resources_) out.u32(resource.statedLength).text(resource.data);
  return out;
}

void DfontBuilder::appendTypes(BeBytes& out) const {
  const std::vector<std::string> all = types();
  auto list = static_cast<unsigned>(2 + 8 * all.size());
  out.label("numTypes").u16(static_cast<unsigned>(all.size()) - 1);
  for (const std::string& type : all) {
    out.label(type).tag(type);
    out.label(type + ".count").u16(countOf(type) - 1);
    out.label(type + ".list").u16(list);
    list += kReferenceSize * countOf(type);
  }
}

void DfontBuilder::appendReferences(BeBytes& out) const {
  unsigned number = 0;
  for (const std::string& type : types()) {
    unsigned at = 0;
    for (const Resource& resource : resources_) {
      if (resource.type == type) {
        out.label("ref" + std::to_string(number)).u16(kFirstId + number).u16(kNoName);
        out.u8(0).u24(at).u32(0);
        ++number;
      }
      at += static_cast<unsigned>(4 + resource.data.size());
    }
  }
}

BeBytes DfontBuilder::bytes() const {
  const auto dataLength = static_cast<std::uint32_t>(data().size());
  BeBytes out;
  out.label("dataOffset").u32(kDataOffset);
  out.label("mapOffset").u32(kDataOffset + dataLength);
  out.u32(dataLength).u32(0).zeros(kDataOffset - kHeaderSize).append(data());
  out.label("map").zeros(kHeaderSize + 8);
  out.label("typeListOffset").u16(kTypeListOffset).u16(0);
  appendTypes(out);
  appendReferences(out);
  return out;
}

}  // namespace qxtest
