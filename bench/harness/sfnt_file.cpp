#include "harness/sfnt_file.h"

namespace qxbench {
namespace {

constexpr std::uint32_t kCollection = 0x74746366;  // 'ttcf'

std::vector<SfntTable> directoryAt(ByteView file, std::uint32_t offset) {
  constexpr std::uint32_t kHeader = 12;
  constexpr std::uint32_t kRecord = 16;
  std::vector<SfntTable> tables;
  const unsigned count = file.u16(offset + 4);
  for (unsigned i = 0; i < count; ++i) {
    const ByteView record = file.slice(offset + kHeader + kRecord * i, kRecord);
    std::string tag;
    for (unsigned at = 0; at < 4; ++at) tag += static_cast<char>(record.u8(at));
    tables.push_back({tag, record.u32(8), record.u32(12)});
  }
  return tables;
}

}  // namespace

ByteView viewOf(std::string_view bytes) {
  return ByteView(bytes.data(), bytes.size());
}

std::vector<std::vector<SfntTable>> sfntDirectories(ByteView file) {
  if (file.u32(0) != kCollection) return {directoryAt(file, 0)};
  std::vector<std::vector<SfntTable>> faces;
  const std::uint32_t count = file.u32(8);
  for (std::uint32_t i = 0; i < count && file.contains(12 + 4 * i, 4); ++i)
    faces.push_back(directoryAt(file, file.u32(12 + 4 * i)));
  return faces;
}

std::string_view tableOf(std::string_view file, const char* tag) {
  const auto faces = sfntDirectories(viewOf(file));
  if (faces.empty()) return {};
  for (const SfntTable& table : faces.front()) {
    if (table.tag == tag && table.offset <= file.size())
      return file.substr(table.offset, table.length);
  }
  return {};
}

}  // namespace qxbench
