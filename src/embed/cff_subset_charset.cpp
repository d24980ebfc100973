#include "embed/cff_subset_charset.h"

#include <algorithm>

#include "embed/cff/table_cursor.h"

namespace QXFontService_NS::embed {

using QXCommonNS::bytes::ByteWriter;

namespace {

constexpr std::uint16_t kNoGlyph = 0xFFFF;
constexpr unsigned kMostLeftOfFormat1 = 255;

struct KeyRun {
  std::uint16_t first;
  std::uint16_t left;  // keys behind the first
};

std::vector<KeyRun> runsOf(const KeyedGlyphs& glyphs) {
  std::vector<KeyRun> runs;
  for (const auto& [key, glyph] : glyphs) {
    if (!runs.empty() && key == runs.back().first + runs.back().left + 1) {
      ++runs.back().left;
    } else {
      runs.push_back({key, 0});
    }
  }
  return runs;
}

struct FdRun {
  std::uint16_t first;
  std::uint8_t fd;
};

bool readFdRuns(const cff::CffTable& table, std::int64_t fdSelect, std::vector<FdRun>& runs) {
  if (fdSelect <= 0) return false;
  cff::TableCursor cursor(*table.stream, table.at(fdSelect));
  cursor.u8();  // the format, which is taken for 3
  const unsigned count = cursor.u16();
  for (unsigned i = 0; i < count && !cursor.failed(); ++i) {
    const std::uint16_t first = cursor.u16();
    runs.push_back({first, cursor.u8()});
  }
  return count > 0 && !cursor.failed();
}

std::vector<FdRun> renumber(const std::vector<FdRun>& source, const KeyedGlyphs& glyphs) {
  std::vector<FdRun> runs{source.front()};
  std::size_t at = 0;
  std::uint16_t written = 0;
  for (const auto& [key, glyph] : glyphs) {
    ++written;
    const bool isLast = glyph >= source.back().first;
    if (isLast) at = source.size() - 1;
    while (at + 1 < source.size() && glyph >= source[at + 1].first) ++at;
    if (source[at].fd != runs.back().fd) runs.push_back({written, source[at].fd});
    if (isLast) break;
  }
  return runs;
}

}  // namespace

KeyedGlyphs keyGlyphs(const FS_CFFInfo& info, const std::vector<std::uint16_t>& glyphs) {
  KeyedGlyphs keyed;
  for (const std::uint16_t glyph : glyphs) {
    if (glyph == kNoGlyph) continue;
    keyed.try_emplace(info.isCID ? glyph : info.getCIDFromGID(glyph), glyph);
  }
  return keyed;
}

void writeCharset(const KeyedGlyphs& glyphs, ByteWriter& out) {
  const std::vector<KeyRun> runs = runsOf(glyphs);
  const bool wide = std::any_of(runs.begin(), runs.end(),
                                [](const KeyRun& run) { return run.left > kMostLeftOfFormat1; });
  out.u8(wide ? 2 : 1);
  for (const KeyRun& run : runs) {
    out.u16(run.first);
    if (wide) {
      out.u16(run.left);
    } else {
      out.u8(static_cast<std::uint8_t>(run.left));
    }
  }
}

bool writeFDSelect(const cff::CffTable& table, std::int64_t fdSelect, const KeyedGlyphs& glyphs,
                   ByteWriter& out) {
  std::vector<FdRun> source;
  if (!readFdRuns(table, fdSelect, source)) return false;
  const std::vector<FdRun> runs = renumber(source, glyphs);
  out.u8(3).u16(static_cast<std::uint16_t>(runs.size()));
  for (const FdRun& run : runs) out.u16(run.first).u8(run.fd);
  out.u16(static_cast<std::uint16_t>(glyphs.size() + 1));
  return true;
}

}  // namespace QXFontService_NS::embed
