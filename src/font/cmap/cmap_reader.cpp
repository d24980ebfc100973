#include "font/cmap/cmap_reader.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "common/bytes/record_array.h"
#include "common/bytes/stream_read.h"

namespace QXFontService_NS::cmap {
namespace {

using QXCommonNS::bytes::ByteView;
using QXCommonNS::bytes::RecordArray;

enum Platform : std::uint16_t { kUnicode = 0, kMacintosh = 1, kWindows = 3 };

struct EncodingRecord {
  static constexpr std::size_t kSize = 8;
  static EncodingRecord decode(ByteView v) { return {v.u16(0), v.u16(2), v.u32(4)}; }

  std::uint16_t platformID;
  std::uint16_t encodingID;
  std::uint32_t offset;
};

/// A record whose subtable is of a supported format and encoding.
struct Candidate {
  EncodingRecord record;
  unsigned format;
};

bool isSupportedFormat(unsigned format) {
  return format == 0 || format == 2 || format == 4 || format == 12 || format == 14;
}

template <std::size_t N>
bool isOneOf(const std::array<std::uint16_t, N>& values, std::uint16_t value) {
  return std::find(values.begin(), values.end(), value) != values.end();
}

bool isSupportedEncoding(const EncodingRecord& record) {
  static constexpr std::array<std::uint16_t, 5> kMacintoshEncodings = {0, 1, 2, 3, 25};
  static constexpr std::array<std::uint16_t, 7> kWindowsEncodings = {0, 1, 2, 3, 4, 5, 10};
  if (record.platformID == kMacintosh) return isOneOf(kMacintoshEncodings, record.encodingID);
  if (record.platformID == kWindows) return isOneOf(kWindowsEncodings, record.encodingID);
  return true;
}

class Reader {
 public:
  Reader(std::istream& stream, bool isMacStyle) : stream_(stream) { out_.isMacStyle = isMacStyle; }

  CmapReading read(const std::optional<TableRange>& table) {
    if (table) {
      start_ = table->offset;
      out_.failure = readAll();
    } else {
      out_.failure = formatFailure("'cmap' table not found");
    }
    return std::move(out_);
  }

 private:
  TableResult readAll();
  TableResult readRecords();
  TableResult readPass();
  TableResult offer(const EncodingRecord& record);
  TableResult readPutOff();
  TableResult take(const Candidate& candidate);
  template <class Format>
  TableResult takeInto(std::unique_ptr<Format>& slot, const EncodingRecord& record,
                       TableResult (*readFormat)(std::istream&, std::int64_t, Format&));

  [[nodiscard]] bool takesPart(const EncodingRecord& record) const;
  [[nodiscard]] bool isPutOff(const EncodingRecord& record) const;
  [[nodiscard]] bool holds(unsigned format) const;
  [[nodiscard]] std::int64_t startOf(const EncodingRecord& record) const {
    return start_ + record.offset;
  }
  [[nodiscard]] TableResult noSubtable() const;

  std::istream& stream_;
  std::int64_t start_ = 0;
  std::vector<std::byte> recordBytes_;
  std::vector<Candidate> putOff_;
  bool passMapsCodes_ = false;
  bool passReadFormat12_ = false;
  int lastUnsupported_ = -1;
  CmapReading out_;
};

TableResult Reader::readAll() {
  if (auto failure = readRecords()) return failure;
  if (auto failure = readPass()) return failure;
  if (passMapsCodes_) return {};
  if (out_.isMacStyle) return noSubtable();
  out_.isMacStyle = true;
  if (auto failure = readPass()) return failure;
  return passMapsCodes_ ? TableResult() : noSubtable();
}

TableResult Reader::readRecords() {
  std::array<std::byte, 4> header{};
  if (!QXCommonNS::bytes::readExact(stream_, start_, header)) {
    return readFailure("'cmap' table read error");
  }
  const std::uint16_t numTables = ByteView(header).u16(2);
  if (numTables == 0) return formatFailure("'cmap' table has no record error");
  const std::size_t size = numTables * EncodingRecord::kSize;
  recordBytes_ = QXCommonNS::bytes::readBlock(stream_, start_ + 4, size);
  if (recordBytes_.size() < size) return readFailure("'cmap' table record read error");
  return {};
}

TableResult Reader::readPass() {
  passMapsCodes_ = false;
  passReadFormat12_ = false;
  putOff_.clear();
  const RecordArray<EncodingRecord> records(ByteView(recordBytes_), 0, recordBytes_.size());
  for (std::size_t i = 0; i < records.size(); ++i) {
    if (auto failure = offer(records[i])) return failure;
  }
  if (auto failure = readPutOff()) return failure;
  // Format 12 answers for all codes, even for those that only format 4 has.
  if (passReadFormat12_) out_.subtables.format4.reset();
  return {};
}

TableResult Reader::offer(const EncodingRecord& record) {
  if (!takesPart(record)) return {};
  std::array<std::byte, 2> word{};
  if (!QXCommonNS::bytes::readExact(stream_, startOf(record), word)) {
    return readFailure("'cmap' table format read error");
  }
  const unsigned format = ByteView(word).u16(0);
  if (!isSupportedFormat(format)) {
    lastUnsupported_ = static_cast<int>(format);
    return {};
  }
  if (!isSupportedEncoding(record)) return {};
  if (!isPutOff(record)) return take({record, format});
  putOff_.push_back({record, format});
  return {};
}

bool Reader::takesPart(const EncodingRecord& record) const {
  if (record.platformID == kUnicode) return out_.isMacStyle || record.encodingID > 2;
  return record.platformID == kMacintosh || record.platformID == kWindows;
}

// The plain Unicode subtable stands back behind those of the other platforms, whatever its place,
// but may add a format that they lack.
bool Reader::isPutOff(const EncodingRecord& record) const {
  return !out_.isMacStyle && record.platformID == kUnicode && record.encodingID == 3;
}

TableResult Reader::readPutOff() {
  for (const Candidate& candidate : putOff_) {
    if (!passMapsCodes_) break;
    if (auto failure = take(candidate)) return failure;
  }
  return {};
}

TableResult Reader::take(const Candidate& candidate) {
  if (holds(candidate.format)) return {};
  CmapSubtables& held = out_.subtables;
  switch (candidate.format) {
    case 0:
      return takeInto(held.format0, candidate.record, readFormat0);
    case 2:
      return takeInto(held.format2, candidate.record, readFormat2);
    case 4:
      return takeInto(held.format4, candidate.record, readFormat4);
    case 12:
      passReadFormat12_ = true;
      return takeInto(held.format12, candidate.record, readFormat12);
    default:
      return takeInto(held.format14, candidate.record, readFormat14);
  }
}

bool Reader::holds(unsigned format) const {
  const CmapSubtables& held = out_.subtables;
  switch (format) {
    case 0:
      return held.format0 != nullptr;
    case 2:
      return held.format2 != nullptr;
    case 4:
      return held.format4 != nullptr;
    case 12:
      return held.format12 != nullptr;
    default:
      return held.format14 != nullptr;
  }
}

template <class Format>
TableResult Reader::takeInto(std::unique_ptr<Format>& slot, const EncodingRecord& record,
                             TableResult (*readFormat)(std::istream&, std::int64_t, Format&)) {
  auto subtable = std::make_unique<Format>();
  if (auto failure = readFormat(stream_, startOf(record), *subtable)) return failure;
  subtable->platformID = record.platformID;
  subtable->encodingID = record.platformID == kUnicode ? std::uint16_t{1} : record.encodingID;
  if constexpr (requires { subtable->charCount; }) {
    out_.subtables.maxCharCount = std::max(out_.subtables.maxCharCount, subtable->charCount);
    passMapsCodes_ = true;
  }
  slot = std::move(subtable);
  return {};
}

TableResult Reader::noSubtable() const {
  if (lastUnsupported_ < 0) return formatFailure("'cmap' table has no valid record error");
  return formatFailure("'cmap' table format " + std::to_string(lastUnsupported_) + " unsupported");
}

}  // namespace

CmapReading readCmap(std::istream& stream, const std::optional<TableRange>& table,
                     bool isMacStyle) {
  return Reader(stream, isMacStyle).read(table);
}

}  // namespace QXFontService_NS::cmap
