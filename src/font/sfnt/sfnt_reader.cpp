#include "font/sfnt/sfnt_reader.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>

#include "qxcommon/lang.h"
#include "qxfontservice/names.h"

#include "common/bytes/stream_read.h"
#include "font/directory/report_texts.h"
#include "font/names/name_table.h"

namespace QXFontService_NS::sfnt {
namespace {

using QXCommonNS::bytes::readBlock;
using QXCommonNS::bytes::readExact;

constexpr std::uint32_t kOpenType = tagOf("OTTO");
constexpr std::uint32_t kTrueType = 0x00010000;
constexpr std::uint32_t kApple = tagOf("true");
constexpr std::uint32_t kAppleType1 = tagOf("typ1");
constexpr std::uint8_t kLatinText = 2;   // PANOSE family type
constexpr int kVerticalMetric = 4;       // bytes of an advance and a bearing
constexpr std::uint8_t kMonospaced = 9;  // PANOSE proportion

TableFailure silence() {
  return {kSilent, ""};
}

bool isOpenType(FS_FontFileType type) {
  return type == FS_FILETYPE_OPENTYPE || type == FS_FILETYPE_OPENTYPE_CID;
}

bool mayLackOs2(FS_FontFileType type) {
  return type == FS_FILETYPE_TRUETYPE || type == FS_FILETYPE_TTC || type == FS_FILETYPE_OPENTYPE ||
         type == FS_FILETYPE_DFONT;
}

/// Moves the offsets of directory records by `distance`, in 32 bits.
void moveOffsets(std::span<std::byte> directory, std::uint32_t distance) {
  constexpr std::size_t kOffset = 8;
  const ByteView view{std::span<const std::byte>(directory)};
  for (std::size_t at = kOffset; at + 4 <= directory.size(); at += TableDirectory::kRecordSize) {
    const std::uint32_t moved = view.u32(at) + distance;
    for (unsigned i = 0; i < 4; ++i)
      directory[at + i] = static_cast<std::byte>(moved >> (24 - 8 * i));
  }
}

class SfntReader {
 public:
  SfntReader(std::istream& stream, FS_FontFileType type, SfntRecords& out)
      : stream_(stream), type_(type), out_(out) {}

  TableResult read() {
    using Step = TableResult (SfntReader::*)();
    constexpr std::array<Step, 11> kSteps{
        &SfntReader::readDirectory, &SfntReader::checkVersion, &SfntReader::checkOutlines,
        &SfntReader::readHead,      &SfntReader::readHhea,     &SfntReader::readOs2,
        &SfntReader::readNames,     &SfntReader::readPost,     &SfntReader::readVhea,
        &SfntReader::readVmtx,      &SfntReader::chooseNames};
    for (const Step step : kSteps)
      if (TableResult failure = (this->*step)()) return failure;
    return std::nullopt;
  }

 private:
  TableResult readDirectory();
  TableResult checkVersion();
  TableResult checkOutlines();
  TableResult readHead();
  TableResult readHhea();
  TableResult readOs2();
  TableResult takeOs2(const TableRecord& table);
  TableResult synthesizeOs2();
  TableResult readNames();
  TableResult readPost();
  TableResult readVhea();
  TableResult readVmtx();
  TableResult chooseNames();

  bool has(std::uint32_t tag) const { return out_.directory.has(tag); }
  template <class Table>
  TableResult readRequired(std::uint32_t tag, const char* notFound, const char* readError,
                           Table& table);

  std::istream& stream_;
  FS_FontFileType type_;
  SfntRecords& out_;
  std::uint32_t sfntVersion_ = 0;
};

TableResult SfntReader::readDirectory() {
  stream_.clear();
  const std::int64_t start = stream_.tellg();
  std::array<std::byte, OffsetTable::kSize> header{};
  if (!readExact(stream_, start, header)) return readFailure(texts::kOffsetTableRead);
  const OffsetTable table = OffsetTable::decode(ByteView(header));
  sfntVersion_ = table.sfntVersion;
  if (table.numTables == 0) return formatFailure(texts::numbered(texts::kNumTables, 0));
  const std::size_t size = TableDirectory::kRecordSize * table.numTables;
  std::vector<std::byte> directory =
      readBlock(stream_, start + static_cast<std::int64_t>(header.size()), size);
  if (directory.size() < size) return readFailure(texts::kDirectoryRead);
  if (type_ == FS_FILETYPE_DFONT) moveOffsets(directory, static_cast<std::uint32_t>(start));
  out_.directory = TableDirectory(ByteView(directory));
  out_.image = FS_TableDirectoryImage(ByteView(header), ByteView(directory));
  return std::nullopt;
}

TableResult SfntReader::checkVersion() {
  const bool known = isOpenType(type_) ? sfntVersion_ == kOpenType
                                       : sfntVersion_ == kTrueType || sfntVersion_ == kApple ||
                                             sfntVersion_ == kAppleType1;
  if (!known) return silence();
  const bool whole = has(tagOf("head")) && has(tagOf("hhea")) && has(tagOf("hmtx"));
  if (sfntVersion_ == kApple && !whole) return silence();
  return std::nullopt;
}

TableResult SfntReader::checkOutlines() {
  if (has(tagOf("glyf")) || has(tagOf("CFF "))) return std::nullopt;
  return formatFailure(texts::kNoOutlines);
}

/// Reads a table that must be there, in its fixed size: the stated length is not looked at.
template <class Table>
TableResult SfntReader::readRequired(std::uint32_t tag, const char* notFound, const char* readError,
                                     Table& table) {
  const TableRecord* record = out_.directory.find(tag);
  if (record == nullptr) return formatFailure(notFound);
  std::array<std::byte, Table::kSize> bytes{};
  if (!readExact(stream_, record->offset, bytes)) return readFailure(readError);
  table = Table::decode(ByteView(bytes));
  return std::nullopt;
}

TableResult SfntReader::readHead() {
  return readRequired(tagOf("head"), texts::kNoHead, texts::kHeadRead, out_.head);
}

TableResult SfntReader::readHhea() {
  return readRequired(tagOf("hhea"), texts::kNoHhea, texts::kHheaRead, out_.hhea);
}

TableResult SfntReader::readOs2() {
  const TableRecord* table = out_.directory.find(tagOf("OS/2"));
  TableResult failure = table != nullptr ? takeOs2(*table) : synthesizeOs2();
  if (!failure) out_.os2.fillWindowsHeights(out_.hhea);
  return failure;
}

/// Short tables are taken as they are: only a file that ends inside the table is short.
TableResult SfntReader::takeOs2(const TableRecord& table) {
  out_.hasOS2 = true;
  if (type_ == FS_FILETYPE_DFONT) out_.isMacStyle = true;
  std::array<std::byte, Os2::kReadLimit> buffer{};
  const auto bytes = std::span(buffer).first(std::min<std::size_t>(table.length, buffer.size()));
  if (!readExact(stream_, table.offset, bytes)) return readFailure(texts::kOs2Read);
  out_.os2 = Os2::decode(ByteView(buffer));
  return std::nullopt;
}

TableResult SfntReader::synthesizeOs2() {
  if (!mayLackOs2(type_)) return formatFailure(texts::kNoOs2);
  out_.isMacStyle = true;
  out_.os2 = Os2::synthesize(out_.head, out_.hhea);
  return std::nullopt;
}

TableResult SfntReader::readNames() {
  names::NameTable table;
  const TableRecord* record = out_.directory.find(tagOf("name"));
  if (TableResult failure = names::readNameTable(stream_, record, out_.isMacStyle, table))
    return failure;
  out_.names = std::move(table.names);
  out_.isSymbolic = table.isSymbolic;
  out_.psNameDiffers = table.psNameDiffers;
  return std::nullopt;
}

/// With `OS/2`, PANOSE alone tells a fixed pitch: `post` of many text fonts claims one. Kept:
/// monospaced fonts without PANOSE numbers count as proportional, and documents were set so.
TableResult SfntReader::readPost() {
  if (TableResult failure =
          readRequired(tagOf("post"), texts::kNoPost, texts::kPostRead, out_.post))
    return failure;
  const auto& panose = out_.os2.panose;
  out_.isFixedPitch =
      out_.hasOS2 ? panose[0] == kLatinText && panose[3] == kMonospaced : out_.post.isFixedPitch;
  return std::nullopt;
}

TableResult SfntReader::readVhea() {
  const TableRecord* record = out_.directory.find(tagOf("vhea"));
  if (record == nullptr) return std::nullopt;
  std::array<std::byte, Vhea::kSize> bytes{};
  if (!readExact(stream_, record->offset, bytes)) return readFailure(texts::kVheaRead);
  out_.vhea = Vhea::decode(ByteView(bytes));
  out_.numOfLongVerMetrics = Vhea::numOfLongVerMetrics(ByteView(bytes));
  return std::nullopt;
}

/// A file that ends inside the metrics is damaged. No query asks for one of them and embedding
/// copies the table, so that their last byte is all that is read: a CJK font has 80 KB of them.
TableResult SfntReader::readVmtx() {
  if (out_.numOfLongVerMetrics == 0) return std::nullopt;
  const TableRecord* record = out_.directory.find(tagOf("vmtx"));
  if (record == nullptr) {
    out_.numOfLongVerMetrics = 0;
    return std::nullopt;
  }
  const std::int64_t last =
      std::int64_t{record->offset} + std::int64_t{kVerticalMetric} * out_.numOfLongVerMetrics - 1;
  std::array<std::byte, 1> byte{};
  if (!readExact(stream_, last, byte)) return readFailure(texts::kVmtxRead);
  return std::nullopt;
}

TableResult SfntReader::chooseNames() {
  // With one language there is nothing to choose, and asking ICU costs more than all the rest.
  const bool single = out_.names.sets().size() == 1;
  out_.names.chooseDefault(single ? 0 : static_cast<int>(QXLang::getDefaultLocale().getLCID()));
  return std::nullopt;
}

}  // namespace

TableResult readSfntRecords(std::istream& stream, FS_FontFileType type, SfntRecords& out) {
  return SfntReader(stream, type, out).read();
}

}  // namespace QXFontService_NS::sfnt
