#include "font/names/name_table.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

#include "common/limits.h"
#include "font/directory/report_texts.h"
#include "font/directory/table_window.h"
#include "font/names/name_decoder.h"
#include "font/names/name_record.h"
#include "font/names/name_slots.h"

namespace QXFontService_NS::names {
namespace {

namespace texts = sfnt::texts;

constexpr std::uint32_t kHeaderSize = 6;
/// No record and no string begins or ends behind this, whatever the directory says.
constexpr std::uint64_t kLargestTable = kHeaderSize + std::uint64_t{NameRecord::kSize} * 0xFFFF;

class NameReader {
 public:
  NameReader(std::istream& stream, const sfnt::TableRecord& table, NameTable& out)
      : window_(stream, table.offset, std::min<std::uint64_t>(table.length, kLargestTable)),
        out_(out) {}

  TableResult read(bool isMacStyle) {
    if (TableResult failure = readRecords()) return failure;
    if (TableResult failure = takePasses(isMacStyle)) return failure;
    out_.isSymbolic = symbolEncoding_ && !textEncoding_;
    out_.names.shrink();
    if (!nameFound_) return formatFailure(texts::kNoFontName);
    return std::nullopt;
  }

 private:
  TableResult readRecords();
  TableResult takePasses(bool isMacStyle);
  TableResult takePass(int pass);
  TableResult takeMacintosh(std::size_t index, const NameRecord& record, int pass);
  TableResult takeWindows(std::size_t index, const NameRecord& record);
  void noteEncoding(unsigned encodingID);
  std::optional<ByteView> stringOf(const NameRecord& record);
  void storePostScriptName(std::u16string_view name);

  sfnt::TableWindow window_;
  NameTable& out_;
  std::vector<std::byte> records_;
  std::uint16_t stringOffset_ = 0;
  std::uint64_t decoded_ = 0;
  bool nameFound_ = false;
  bool symbolEncoding_ = false;
  bool textEncoding_ = false;
  std::u16string lastPostScriptName_;
};

TableResult NameReader::readRecords() {
  const auto header = window_.read(0, kHeaderSize);
  if (!header) return readFailure(texts::kNameRead);
  const std::uint16_t count = header->u16(2);
  stringOffset_ = header->u16(4);
  if (count == 0) return formatFailure(texts::numbered(texts::kNameCount, count));
  const auto records = window_.read(kHeaderSize, std::uint32_t{NameRecord::kSize} * count);
  if (!records) return readFailure(texts::kNameRecordRead);
  records_.assign(records->span().begin(), records->span().end());
  return std::nullopt;
}

TableResult NameReader::takePasses(bool isMacStyle) {
  for (int pass = isMacStyle ? 1 : 0; pass <= 1 && !nameFound_; ++pass)
    if (TableResult failure = takePass(pass)) return failure;
  return std::nullopt;
}

TableResult NameReader::takePass(int pass) {
  const ByteView records(records_);
  for (std::size_t i = 0; i < records.size() / NameRecord::kSize; ++i) {
    const auto record = NameRecord::decode(records.from(i * NameRecord::kSize));
    TableResult failure;
    if (record.platformID == NameRecord::kMacintosh) failure = takeMacintosh(i, record, pass);
    if (record.platformID == NameRecord::kWindows) failure = takeWindows(i, record);
    if (failure) return failure;
  }
  return std::nullopt;
}

/// The bytes of a string; nothing where the file is too short. A spent budget gives no bytes.
std::optional<ByteView> NameReader::stringOf(const NameRecord& record) {
  decoded_ += record.length;
  if (decoded_ > QXCommonNS::limits::kMostFaceNameBytes) return ByteView();
  return window_.read(std::uint64_t{stringOffset_} + record.offset, record.length);
}

TableResult NameReader::takeMacintosh(std::size_t index, const NameRecord& record, int pass) {
  const auto slot = macintoshSlotOf(record.nameID);
  if (!isMacintoshEncoding(record.encodingID) || !slot) return std::nullopt;
  if (pass == 0 && !isTakenInFirstPass(record.nameID)) return std::nullopt;
  if (namesTheFont(record.nameID)) nameFound_ = true;
  FS_NameSet& set = out_.names.of(record.languageID);
  if (set.has(*slot)) return std::nullopt;
  const auto text = stringOf(record);
  if (!text) return readFailure(texts::numbered(texts::kNameStringRead, index));
  set.set(*slot, decodeMacintosh(record.encodingID, *text));
  return std::nullopt;
}

void NameReader::noteEncoding(unsigned encodingID) {
  (encodingID == 0 ? symbolEncoding_ : textEncoding_) = true;
}

TableResult NameReader::takeWindows(std::size_t index, const NameRecord& record) {
  if (record.encodingID > kLastWindowsEncoding) return std::nullopt;
  noteEncoding(record.encodingID);
  const auto slot = windowsSlotOf(record.nameID);
  if (record.languageID == 0 || !slot) return std::nullopt;
  const bool foundBefore = std::exchange(nameFound_, nameFound_ || namesTheFont(record.nameID));
  FS_NameSet& set = out_.names.of(record.languageID);
  if (set.has(*slot)) return std::nullopt;
  const auto text = stringOf(record);
  if (!text) return readFailure(texts::numbered(texts::kNameStringRead, index));
  const auto name = decodeWindows(record.encodingID, *text);
  if (!name) {
    nameFound_ = foundBefore;
    return std::nullopt;
  }
  set.set(*slot, *name);
  if (*slot == static_cast<int>(NameSlot::postScriptName)) storePostScriptName(*name);
  return std::nullopt;
}

void NameReader::storePostScriptName(std::u16string_view name) {
  if (name.empty() || out_.psNameDiffers) return;
  out_.psNameDiffers = !lastPostScriptName_.empty() && lastPostScriptName_ != name;
  lastPostScriptName_ = name;
}

}  // namespace

TableResult readNameTable(std::istream& stream, const sfnt::TableRecord* table, bool isMacStyle,
                          NameTable& out) {
  if (table == nullptr) return formatFailure(texts::kNoName);
  return NameReader(stream, *table, out).read(isMacStyle);
}

}  // namespace QXFontService_NS::names
