#include "peers/woff_file.h"

#include <zlib.h>

#include <algorithm>
#include <cstring>
#include <memory>

#include "harness/alternate.h"
#include "harness/sfnt_file.h"

namespace qxbench {
namespace {

constexpr int kLevel = 6;
constexpr std::size_t kHeader = 44;
constexpr std::size_t kEntry = 20;

/// zlib takes bytes as unsigned characters; the casts between them.
const Bytef* bytesOf(std::string_view text) {
  return static_cast<const Bytef*>(static_cast<const void*>(text.data()));
}
Bytef* bytesOf(std::string& text, std::size_t at) {
  return static_cast<Bytef*>(static_cast<void*>(text.data() + at));
}

/// A table as it lies in the file.
struct Packed {
  std::string_view bytes;
  std::size_t length;
};

std::vector<Packed> entriesOf(std::string_view woff) {
  std::vector<Packed> entries;
  const ByteView view = viewOf(woff);
  for (unsigned i = 0; i < view.u16(12); ++i) {
    const ByteView entry = view.slice(kHeader + kEntry * i, kEntry);
    if (entry.u32(4) > woff.size()) return {};
    entries.push_back({woff.substr(entry.u32(4), entry.u32(8)), entry.u32(12)});
  }
  return entries;
}

/// Whether a table came out whole in the first `length` bytes of the buffer.
bool unpack(const Packed& table, std::string& buffer) {
  if (table.bytes.size() == table.length) {
    std::copy(table.bytes.begin(), table.bytes.end(), buffer.begin());
    return true;
  }
  uLongf came = buffer.size();
  const int result =
      uncompress(bytesOf(buffer, 0), &came, bytesOf(table.bytes), table.bytes.size());
  return result == Z_OK && came == table.length;
}

std::size_t largestOf(const std::vector<Packed>& entries) {
  std::size_t largest = 0;
  for (const Packed& entry : entries) largest = std::max(largest, entry.length);
  return largest;
}

}  // namespace

std::size_t deflateTables(const std::string& sfnt, std::string& out) {
  const std::vector<SfntTable> tables = sfntDirectories(viewOf(sfnt)).front();
  std::size_t at = 0;
  for (const SfntTable& table : tables) {
    const std::string_view bytes = std::string_view(sfnt).substr(table.offset, table.length);
    out.resize(std::max<std::size_t>(out.size(), at + compressBound(bytes.size())));
    uLongf came = out.size() - at;
    compress2(bytesOf(out, at), &came, bytesOf(bytes), bytes.size(), kLevel);
    at += came;
  }
  return at;
}

std::vector<std::string> tablesOfWoff(std::string_view woff) {
  std::vector<std::string> tables;
  for (const Packed& entry : entriesOf(woff)) {
    std::string table(entry.length + 1, '\0');
    if (!unpack(entry, table)) return {};
    table.resize(entry.length);
    tables.push_back(std::move(table));
  }
  return tables;
}

std::size_t inflateTables(std::string_view woff, std::string& buffer) {
  const std::vector<Packed> entries = entriesOf(woff);
  std::size_t total = 0;
  for (const Packed& entry : entries) total += entry.length;
  buffer.resize(std::max(buffer.size(), largestOf(entries) + 1));
  const auto font = std::make_unique_for_overwrite<char[]>(total);
  std::size_t at = 0;
  for (const Packed& entry : entries) {
    if (!unpack(entry, buffer)) return 0;
    std::memcpy(font.get() + at, buffer.data(), entry.length);
    at += entry.length;
  }
  keep(static_cast<unsigned char>(font[total / 2]));
  return at;
}

}  // namespace qxbench
