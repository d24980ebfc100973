#include "peers/hollow_copy.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cstdint>

#include "harness/alternate.h"
#include "harness/sfnt_file.h"

namespace qxbench {
namespace {

constexpr std::array<const char*, 9> kCopied{"OS/2", "cvt ", "fpgm", "head", "hhea",
                                             "hmtx", "maxp", "post", "prep"};

/// Where the outlines of the glyphs stand in `glyf`.
class Locations {
 public:
  explicit Locations(const std::string& font)
      : loca_(viewOf(tableOf(font, "loca"))),
        wide_(viewOf(tableOf(font, "head")).u16(50) != 0),
        count_(static_cast<unsigned>(loca_.size() / (wide_ ? 4 : 2)) - 1) {}

  [[nodiscard]] std::uint32_t begin(unsigned glyph) const {
    return wide_ ? loca_.u32(4ULL * glyph) : 2U * loca_.u16(2ULL * glyph);
  }
  [[nodiscard]] std::uint32_t size(unsigned glyph) const { return begin(glyph + 1) - begin(glyph); }
  [[nodiscard]] unsigned count() const { return count_; }
  [[nodiscard]] bool isWide() const { return wide_; }

 private:
  ByteView loca_;
  bool wide_;
  unsigned count_;
};

/// Adds the components of a glyph to the glyphs that are still to be looked at.
void addComponents(ByteView glyph, std::vector<unsigned>& open) {
  if (glyph.size() < 12 || glyph.i16(0) >= 0) return;
  for (std::uint64_t at = 10; at + 4 <= glyph.size();) {
    const unsigned flags = glyph.u16(at);
    open.push_back(glyph.u16(at + 2));
    at += 4 + ((flags & 1U) != 0 ? 4 : 2);
    at += (flags & 8U) != 0 ? 2 : (flags & 0x40U) != 0 ? 4 : (flags & 0x80U) != 0 ? 8 : 0;
    if ((flags & 0x20U) == 0) break;
  }
}

std::vector<bool> closureOf(const std::string& font, const Locations& locations,
                            const std::vector<unsigned short>& glyphs) {
  const ByteView glyf = viewOf(tableOf(font, "glyf"));
  std::vector<bool> kept(locations.count());
  std::vector<unsigned> open(glyphs.begin(), glyphs.end());
  open.push_back(0);
  while (!open.empty()) {
    const unsigned glyph = open.back();
    open.pop_back();
    if (glyph >= kept.size() || kept[glyph]) continue;
    kept[glyph] = true;
    addComponents(glyf.slice(locations.begin(glyph), locations.size(glyph)), open);
  }
  return kept;
}

std::uint32_t sumOf(ByteView bytes) {
  std::uint32_t sum = 0;
  for (std::uint64_t at = 0; at < bytes.size(); at += 4) sum += bytes.u32(at);
  return sum;
}

void appendOffset(std::string& loca, std::uint32_t offset, bool wide) {
  const std::uint32_t value = wide ? offset : offset / 2;
  for (int shift = wide ? 24 : 8; shift >= 0; shift -= 8)
    loca += static_cast<char>(value >> shift & 0xFF);
}

}  // namespace

void hollowCopy(const std::string& font, const std::vector<unsigned short>& glyphs,
                std::string& out) {
  const Locations locations(font);
  const std::vector<bool> kept = closureOf(font, locations, glyphs);
  const std::string_view glyf = tableOf(font, "glyf");
  std::string outlines;
  std::string loca;
  loca.reserve(4ULL * (kept.size() + 1));
  for (unsigned glyph = 0; glyph < kept.size(); ++glyph) {
    appendOffset(loca, static_cast<std::uint32_t>(outlines.size()), locations.isWide());
    if (kept[glyph]) outlines += glyf.substr(locations.begin(glyph), locations.size(glyph));
  }
  appendOffset(loca, static_cast<std::uint32_t>(outlines.size()), locations.isWide());
  keep(sumOf(viewOf(outlines)) + sumOf(viewOf(loca)));
  out.assign(12 + 16 * (kCopied.size() + 2), '\0');
  for (const char* tag : kCopied) out += tableOf(font, tag);
  out += outlines;
  out += loca;
}

void readKept(const std::string& path, const std::string& font,
              const std::vector<unsigned short>& glyphs) {
  const Locations locations(font);
  const std::vector<bool> kept = closureOf(font, locations, glyphs);
  static std::string buffer;
  const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  const auto take = [&](std::string_view piece) {
    buffer.resize(piece.size());
    const auto offset = static_cast<off_t>(piece.data() - font.data());
    if (::pread(file, buffer.data(), piece.size(), offset) < 0) keep(1);
  };
  take(std::string_view(font).substr(0, 12 + 16 * sfntDirectories(viewOf(font)).front().size()));
  for (const char* tag : kCopied) take(tableOf(font, tag));
  take(tableOf(font, "loca"));
  const std::string_view glyf = tableOf(font, "glyf");
  for (unsigned glyph = 0; glyph < kept.size(); ++glyph)
    if (kept[glyph]) take(glyf.substr(locations.begin(glyph), locations.size(glyph)));
  ::close(file);
}

}  // namespace qxbench
