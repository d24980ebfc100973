#include "peers/hollow_cff.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>

#include "harness/alternate.h"
#include "harness/sfnt_file.h"

namespace qxbench {
namespace {

constexpr const char* kCff = "CFF ";

/// An INDEX of a CFF table (Adobe Technical Note 5176).
class Index {
 public:
  Index(ByteView table, std::uint32_t at)
      : table_(table), offsets_(at + 3), count_(table.u16(at)), offSize_(table.u8(at + 2)) {
    data_ = offsets_ + (count_ + 1) * offSize_ - 1;
    if (count_ == 0) data_ = at + 2;
  }

  [[nodiscard]] unsigned count() const { return count_; }
  [[nodiscard]] std::uint32_t begin(unsigned i) const {
    std::uint32_t offset = 0;
    for (unsigned k = 0; k < offSize_; ++k)
      offset = offset << 8 | table_.u8(offsets_ + i * offSize_ + k);
    return data_ + offset;
  }
  [[nodiscard]] std::uint32_t size(unsigned i) const { return begin(i + 1) - begin(i); }
  [[nodiscard]] std::uint32_t end() const { return count_ == 0 ? data_ : begin(count_); }

 private:
  ByteView table_;
  std::uint32_t offsets_;
  unsigned count_;
  unsigned offSize_;
  std::uint32_t data_;
};

/// Where the nibbles of a real number end.
std::uint32_t behindReal(ByteView table, std::uint32_t at) {
  while ((table.u8(at) & 15) != 15 && table.u8(at) >> 4 != 15) ++at;
  return at + 1;
}

/// The operand of the operator CharStrings (17) in the DICT of [at, end).
std::uint32_t charStringsIn(ByteView table, std::uint32_t at, std::uint32_t end) {
  std::uint32_t last = 0;
  while (at < end) {
    const unsigned byte = table.u8(at++);
    if (byte == 17) return last;
    if (byte == 28) {
      last = table.u16(at);
      at += 2;
    } else if (byte == 29) {
      last = table.u32(at);
      at += 4;
    } else if (byte == 30) {
      at = behindReal(table, at);
    } else if (byte >= 247 && byte < 255) {
      last = (byte - 247) * 256 + table.u8(at++) + 108;
    } else if (byte >= 32) {
      last = byte - 139;
    } else if (byte == 12) {
      ++at;
    }
  }
  return 0;
}

Index charStringsOf(ByteView table) {
  const Index names(table, table.u8(2));
  const Index topDicts(table, names.end());
  return {table, charStringsIn(table, topDicts.begin(0), topDicts.end())};
}

std::uint32_t startOfCharStrings(ByteView table) {
  const Index topDicts(table, Index(table, table.u8(2)).end());
  return charStringsIn(table, topDicts.begin(0), topDicts.end());
}

std::uint32_t sumOf(ByteView bytes) {
  std::uint32_t sum = 0;
  for (std::uint64_t at = 0; at < bytes.size(); at += 4) sum += bytes.u32(at);
  return sum;
}

void appendOffset(std::string& out, std::size_t offset) {
  for (int shift = 24; shift >= 0; shift -= 8) out += static_cast<char>(offset >> shift & 0xFF);
}

/// Offsets and data of the charstrings up to the highest glyph.
struct Written {
  std::string offsets;
  std::string data;
};

Written writeCharStrings(std::string_view cff, const Index& charStrings,
                         const std::vector<unsigned short>& glyphs) {
  constexpr unsigned kFiller = 1;
  Written written;
  const unsigned last = std::min<unsigned>(glyphs.back(), charStrings.count() - 1);
  written.offsets.reserve(4ULL * (last + 2));
  appendOffset(written.offsets, 1);
  auto next = glyphs.begin();
  for (unsigned glyph = 0; glyph <= last; ++glyph) {
    while (next != glyphs.end() && *next < glyph) ++next;
    const bool kept = glyph == 0 || (next != glyphs.end() && *next == glyph);
    const unsigned from = kept ? glyph : kFiller;
    written.data.append(cff, charStrings.begin(from), charStrings.size(from));
    appendOffset(written.offsets, written.data.size() + 1);
  }
  return written;
}

void appendCff(std::string_view cff, const std::vector<unsigned short>& glyphs, std::string& out) {
  const ByteView table = viewOf(cff);
  const Index charStrings = charStringsOf(table);
  const Written written = writeCharStrings(cff, charStrings, glyphs);
  const std::size_t begin = out.size();
  out.append(cff, 0, startOfCharStrings(table));
  out.append(3, '\0');
  out += written.offsets;
  out += written.data;
  out += cff.substr(charStrings.end());
  keep(sumOf(viewOf(std::string_view(out).substr(begin))));
}

}  // namespace

void hollowCffCopy(const std::string& font, const std::vector<unsigned short>& glyphs,
                   std::string& out) {
  const std::vector<SfntTable> tables = sfntDirectories(viewOf(font)).front();
  out.assign(12 + 16 * tables.size(), '\0');
  for (const SfntTable& table : tables) {
    const std::string_view bytes = std::string_view(font).substr(table.offset, table.length);
    if (table.tag == kCff) {
      appendCff(bytes, glyphs, out);
    } else {
      out += bytes;
    }
  }
}

void readKeptCff(const std::string& path, const std::string& font,
                 const std::vector<unsigned short>& glyphs) {
  static std::string buffer;
  const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  const auto take = [&](std::uint64_t offset, std::size_t size) {
    buffer.resize(std::max(buffer.size(), size));
    if (::pread(file, buffer.data(), size, static_cast<off_t>(offset)) < 0) keep(1);
  };
  const std::vector<SfntTable> tables = sfntDirectories(viewOf(font)).front();
  take(0, 12 + 16 * tables.size());
  for (const SfntTable& table : tables) {
    if (table.tag != kCff) {
      take(table.offset, table.length);
      continue;
    }
    const ByteView cff = viewOf(std::string_view(font).substr(table.offset, table.length));
    const Index charStrings = charStringsOf(cff);
    take(table.offset, charStrings.begin(0));
    for (const unsigned short glyph : glyphs)
      take(table.offset + charStrings.begin(glyph), charStrings.size(glyph));
    take(table.offset + charStrings.end(), table.length - charStrings.end());
  }
  ::close(file);
}

}  // namespace qxbench
