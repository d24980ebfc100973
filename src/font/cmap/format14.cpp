#include "font/cmap/format14.h"

#include <array>

#include "common/bytes/record_array.h"
#include "common/bytes/stream_read.h"
#include "common/limits.h"

namespace QXFontService_NS::cmap {
namespace {

using QXCommonNS::bytes::ByteView;
using QXCommonNS::bytes::RecordArray;

constexpr std::uint32_t kHeaderSize = 10;

struct VariationSelector {
  static constexpr std::size_t kSize = 11;
  static VariationSelector decode(ByteView v) { return {v.u24(0), v.u32(3), v.u32(7)}; }
  [[nodiscard]] int order(std::int64_t selector) const {
    return varSelector < selector ? -1 : varSelector > selector ? 1 : 0;
  }

  std::uint32_t varSelector;
  std::uint32_t defaultUVSOffset;
  std::uint32_t nonDefaultUVSOffset;
};

/// Codes whose sequences show the glyph that the code has anyway.
struct DefaultRange {
  static constexpr std::size_t kSize = 4;
  static DefaultRange decode(ByteView v) { return {v.u24(0), v.u8(3)}; }
  [[nodiscard]] int order(std::int64_t code) const {
    return startUnicodeValue + additionalCount < code ? -1 : startUnicodeValue > code ? 1 : 0;
  }

  std::uint32_t startUnicodeValue;
  std::uint32_t additionalCount;
};

/// A code whose sequence has a glyph of its own.
struct OwnGlyph {
  static constexpr std::size_t kSize = 5;
  static OwnGlyph decode(ByteView v) { return {v.u24(0), v.u16(3)}; }
  [[nodiscard]] int order(std::int64_t code) const {
    return unicodeValue < code ? -1 : unicodeValue > code ? 1 : 0;
  }

  std::uint32_t unicodeValue;
  std::uint16_t glyphID;
};

template <class Record>
RecordArray<Record> counted(ByteView table) {
  return RecordArray<Record>(table, 4, table.u32(0));
}

template <class Record>
std::optional<Record> findRecord(const RecordArray<Record>& records, int key) {
  const auto at = records.find([key](const Record& record) { return record.order(key); });
  if (!at) return std::nullopt;
  return records[*at];
}

/// Lists codes, but no more table entries than fit into the bytes when none is listed twice, and no
/// more codes than any real font lists.
class Lister {
 public:
  Lister(std::size_t entries, const std::function<void(int, int)>& visit)
      : left_(entries), visit_(visit) {}

  void listDefault(const RecordArray<DefaultRange>& ranges, int selector) {
    for (std::size_t i = 0; i < ranges.size() && spend(); ++i) {
      const DefaultRange range = ranges[i];
      for (std::uint32_t n = 0; n <= range.additionalCount; ++n) {
        list(static_cast<int>(range.startUnicodeValue + n), selector);
      }
    }
  }
  void listOwn(const RecordArray<OwnGlyph>& glyphs, int selector) {
    for (std::size_t i = 0; i < glyphs.size() && spend(); ++i) {
      list(static_cast<int>(glyphs[i].unicodeValue), selector);
    }
  }

 private:
  bool spend() {
    if (left_ == 0 || codesLeft_ == 0) return false;
    --left_;
    return true;
  }
  void list(int code, int selector) {
    if (codesLeft_ == 0) return;
    --codesLeft_;
    visit_(code, selector);
  }

  std::size_t left_;
  std::size_t codesLeft_ = QXCommonNS::limits::kMostVariationSequences;
  const std::function<void(int, int)>& visit_;
};

}  // namespace

ByteView CmapFormat14::tableAt(std::uint32_t offset) const {
  if (offset < kHeaderSize) return {};
  return ByteView(bytes).from(offset - kHeaderSize);
}

CmapFormat14::Answer CmapFormat14::find(int code, int selector) const {
  const RecordArray<VariationSelector> selectors(ByteView(bytes), 0, numVarSelectorRecords);
  const auto record = findRecord(selectors, selector);
  if (!record) return {};
  if (findRecord(counted<DefaultRange>(tableAt(record->defaultUVSOffset)), code)) {
    return {Answer::Kind::ordinaryGlyph, kNoGlyph};
  }
  const auto own = findRecord(counted<OwnGlyph>(tableAt(record->nonDefaultUVSOffset)), code);
  if (!own) return {};
  return {Answer::Kind::ownGlyph, own->glyphID};
}

void CmapFormat14::forEach(const std::function<void(int code, int selector)>& visit) const {
  const RecordArray<VariationSelector> selectors(ByteView(bytes), 0, numVarSelectorRecords);
  Lister lister(bytes.size() / DefaultRange::kSize, visit);
  for (std::size_t i = 0; i < selectors.size(); ++i) {
    const VariationSelector record = selectors[i];
    const int selector = static_cast<int>(record.varSelector);
    lister.listDefault(counted<DefaultRange>(tableAt(record.defaultUVSOffset)), selector);
    lister.listOwn(counted<OwnGlyph>(tableAt(record.nonDefaultUVSOffset)), selector);
  }
}

TableResult readFormat14(std::istream& stream, std::int64_t offset, CmapFormat14& out) {
  std::array<std::byte, kHeaderSize> header{};
  if (!QXCommonNS::bytes::readExact(stream, offset, header)) {
    return readFailure("'cmap' table format 14 read error");
  }
  out.length = ByteView(header).u32(2);
  out.numVarSelectorRecords = ByteView(header).u32(6);
  if (out.length <= kHeaderSize) return readFailure("'cmap' table format 14 header error");
  const std::uint32_t size = out.length - kHeaderSize;
  out.bytes = QXCommonNS::bytes::readBlock(stream, offset + kHeaderSize, size);
  if (out.bytes.size() < size) return readFailure("'cmap' variation selector read error");
  return {};
}

}  // namespace QXFontService_NS::cmap
