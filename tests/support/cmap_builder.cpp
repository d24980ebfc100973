#include "support/cmap_builder.h"

#include <algorithm>

#include "support/be_bytes.h"

namespace qxtest {
namespace {

std::uint32_t size32(std::size_t size) {
  return static_cast<std::uint32_t>(size);
}

unsigned size16(std::size_t size) {
  return static_cast<unsigned>(size) & 0xFFFF;
}

template <class Rows, class Field>
void column(BeBytes& out, const Rows& rows, Field field) {
  for (const auto& row : rows) out.u16(field(row));
}

/// The idRangeOffset words, each counting from itself to the segment's glyphs.
void rangeOffsets(BeBytes& out, const std::vector<CmapSegment>& segments) {
  std::size_t before = 0;
  for (std::size_t i = 0; i < segments.size(); ++i) {
    const std::size_t toArray = 2 * (segments.size() - i);
    out.u16(segments[i].glyphs.empty() ? 0 : size16(toArray + 2 * before));
    before += segments[i].glyphs.size();
  }
}

void subHeaderRows(BeBytes& out, const std::vector<CmapSubHeader>& subHeaders) {
  std::size_t before = 0;
  for (std::size_t i = 0; i < subHeaders.size(); ++i) {
    const CmapSubHeader& row = subHeaders[i];
    const std::size_t toArray = 2 + 8 * (subHeaders.size() - i - 1);
    out.u16(row.firstCode).u16(size16(row.glyphs.size())).i16(row.idDelta);
    out.u16(size16(toArray + 2 * before));
    before += row.glyphs.size();
  }
}

void keys(BeBytes& out, const std::vector<CmapSubHeader>& subHeaders) {
  std::vector<unsigned> words(256);
  for (std::size_t i = 0; i < subHeaders.size(); ++i) {
    for (const unsigned high : subHeaders[i].highBytes) words.at(high) = size16(8 * i);
  }
  for (const unsigned word : words) out.u16(word);
}

std::string defaultTable(const CmapSelector& selector) {
  BeBytes out;
  out.u32(size32(selector.defaults.size()));
  for (const auto& range : selector.defaults) out.u24(range.start).u8(range.additional);
  return out.str();
}

std::string ownTable(const CmapSelector& selector) {
  BeBytes out;
  out.u32(size32(selector.own.size()));
  for (const auto& [code, glyph] : selector.own) out.u24(code).u16(glyph);
  return out.str();
}

/// The offset of `table`, which is moved to the end of `tables`; 0 for one without entries.
std::uint32_t placed(bool present, const std::string& table, std::size_t start,
                     std::string& tables) {
  if (!present) return 0;
  const std::uint32_t offset = size32(start + tables.size());
  tables += table;
  return offset;
}

}  // namespace

CmapBuilder& CmapBuilder::add(unsigned platform, unsigned encoding, const std::string& subtable) {
  records_.push_back({platform, encoding, false, size32(subtables_.size())});
  subtables_ += subtable;
  return *this;
}

CmapBuilder& CmapBuilder::share(unsigned platform, unsigned encoding, std::size_t earlier) {
  const Record& record = records_.at(earlier);
  records_.push_back({platform, encoding, record.isAbsolute, record.offset});
  return *this;
}

CmapBuilder& CmapBuilder::addOffset(unsigned platform, unsigned encoding, std::uint32_t offset) {
  records_.push_back({platform, encoding, true, offset});
  return *this;
}

std::string CmapBuilder::build() const {
  BeBytes out;
  out.u16(0).u16(size16(records_.size()));
  const std::uint32_t start = size32(4 + 8 * records_.size());
  for (const Record& record : records_) {
    out.u16(record.platform).u16(record.encoding);
    out.u32(record.offset + (record.isAbsolute ? 0 : start));
  }
  return out.text(subtables_).str();
}

std::string CmapBuilder::format0(const std::map<unsigned, unsigned>& glyphs) {
  BeBytes out;
  out.u16(0).u16(262).u16(0);
  for (unsigned code = 0; code < 256; ++code) {
    const auto found = glyphs.find(code);
    out.u8(found == glyphs.end() ? 0 : found->second);
  }
  return out.str();
}

std::string CmapBuilder::format2(const std::vector<CmapSubHeader>& subHeaders) {
  BeBytes out;
  out.u16(2).label("length").u16(0).u16(0);
  keys(out, subHeaders);
  subHeaderRows(out, subHeaders);
  for (const CmapSubHeader& row : subHeaders) {
    for (const unsigned glyph : row.glyphs) out.u16(glyph);
  }
  return out.patchU16("length", size16(out.size())).str();
}

std::string CmapBuilder::format4(const std::vector<CmapSegment>& segments, unsigned padWord) {
  BeBytes out;
  out.u16(4).label("length").u16(0).u16(0);
  out.u16(size16(2 * segments.size())).u16(0).u16(0).u16(0);
  column(out, segments, [](const CmapSegment& s) { return s.end; });
  out.u16(padWord);
  column(out, segments, [](const CmapSegment& s) { return s.start; });
  column(out, segments, [](const CmapSegment& s) { return static_cast<unsigned>(s.idDelta); });
  rangeOffsets(out, segments);
  for (const CmapSegment& segment : segments) {
    for (const unsigned glyph : segment.glyphs) out.u16(glyph);
  }
  return out.patchU16("length", size16(out.size())).str();
}

std::string CmapBuilder::format12(const std::vector<CmapGroup>& groups) {
  BeBytes out;
  out.u16(12).u16(0).u32(size32(16 + 12 * groups.size())).u32(0).u32(size32(groups.size()));
  for (const CmapGroup& group : groups) out.u32(group.start).u32(group.end).u32(group.glyph);
  return out.str();
}

std::string CmapBuilder::format14(const std::vector<CmapSelector>& selectors) {
  const std::size_t start = 10 + 11 * selectors.size();
  BeBytes records;
  std::string tables;
  for (const CmapSelector& row : selectors) {
    records.u24(row.selector);
    records.u32(placed(!row.defaults.empty(), defaultTable(row), start, tables));
    records.u32(placed(!row.own.empty(), ownTable(row), start, tables));
  }
  BeBytes out;
  out.u16(14).u32(size32(start + tables.size())).u32(size32(selectors.size()));
  return out.append(records).text(tables).str();
}

std::string CmapBuilder::format6(unsigned first, const std::vector<unsigned>& glyphs) {
  BeBytes out;
  out.u16(6).u16(size16(10 + 2 * glyphs.size())).u16(0).u16(first).u16(size16(glyphs.size()));
  for (const unsigned glyph : glyphs) out.u16(glyph);
  return out.str();
}

}  // namespace qxtest
