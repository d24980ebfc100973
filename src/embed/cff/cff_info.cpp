#include "embed/cff/cff_info.h"

#include <algorithm>
#include <array>

#include "common/bytes/stream_read.h"
#include "embed/cff/charset.h"
#include "embed/cff/dict_entries.h"
#include "embed/cff/encoding.h"
#include "embed/cff/fd_select.h"
#include "type1/maps/standard_strings.h"

namespace QXFontService_NS {

using embed::itemOf;
using embed::Keyword;
using QXCommonNS::QXValue;
using QXCommonNS::bytes::ByteView;
using QXCommonNS::bytes::readExact;

namespace {

constexpr unsigned short kNoGlyph = 0xFFFF;
constexpr std::int32_t kLastPredefinedCharset = 2;

// Four bytes are taken as the header whatever `hdrSize` says: required, the writers do the same.
bool skipHeader(std::istream& stream, std::int64_t& position) {
  std::array<std::byte, 4> header{};
  const bool read = readExact(stream, position, header);
  position += 4;
  return read;
}

// An empty Name INDEX is not supported: its third byte would have to be read like any other's.
bool skipNames(std::istream& stream, std::int64_t& position) {
  FS_CFFIndexHeader names;
  if (!cff::readIndexHeader(stream, position, names)) return false;
  if (names.count == 0 || names.dataSize() < 0) return false;
  position = names.endPosition();
  return true;
}

bool readGlyphCount(const cff::CffTable& table, std::int32_t charStrings, unsigned& count) {
  std::array<std::byte, 3> head{};
  if (charStrings <= 0 || !readExact(*table.stream, table.at(charStrings), head)) return false;
  count = ByteView(head).u16(0);
  return true;
}

}  // namespace

bool FS_CFFInfo::readCFF(std::istream& stream, unsigned int tableOffset) {
  std::int64_t position = tableOffset;
  const cff::CffTable table{&stream, position, 0};
  Places places;
  return skipHeader(stream, position) && skipNames(stream, position) &&
         readTopDict(stream, position, places) && readStrings(stream, position) &&
         readEncoding(table, places) && readCharset(table, places);
}

// Only the first DICT is read, and what is behind it counts as the String INDEX: required.
bool FS_CFFInfo::readTopDict(std::istream& stream, std::int64_t& position, Places& places) {
  FS_CFFIndexHeader header;
  if (!cff::readIndexHeader(stream, position, header) || header.count == 0) return false;
  const std::uint32_t end = header.getOffset(1);
  if (end == 0) return false;
  const auto data = QXCommonNS::bytes::readBlock(stream, header.dataPosition, end - 1);
  if (data.size() != end - 1) return false;
  parseTopDict({static_cast<const char*>(static_cast<const void*>(data.data())), data.size()},
               places);
  position = header.dataPosition + end - 1;
  return true;
}

void FS_CFFInfo::parseTopDict(const FS_CFFBytes& dict, Places& places) {
  topDict = cff::emptyMap();
  cff::DictReader reader({dict.data(), dict.size()});
  while (reader.next()) {
    cff::storeOperator(reader, cff::kTopDictEntries, topDict);
    if (reader.op() == cff::kOpRos) takeRos();
    if (reader.operands().empty()) continue;
    const std::int32_t first = reader.operands().first().getIntegerValue();
    if (reader.op() == cff::kOpCharset) places.charset = first;
    if (reader.op() == cff::kOpEncoding) places.encoding = first;
    if (reader.op() == cff::kOpCharStrings) places.charStrings = first;
  }
}

void FS_CFFInfo::takeRos() {
  const QXValue& ros = itemOf(topDict, Keyword::kROS);
  isCID = true;
  registrySID = static_cast<unsigned short>(FS_Operand(ros, 1).getIntegerValue());
  orderingSID = static_cast<unsigned short>(FS_Operand(ros, 2).getIntegerValue());
  supplement = static_cast<unsigned int>(FS_Operand(ros, 3).getIntegerValue());
}

// The third byte of an empty INDEX is read like that of any other, so something must follow it.
bool FS_CFFInfo::readStrings(std::istream& stream, std::int64_t position) {
  FS_CFFIndexHeader header;
  std::array<std::byte, 1> third{};
  if (!cff::readIndexHeader(stream, position, header)) return false;
  if (header.count == 0) return readExact(stream, header.dataPosition, third);
  return cff::readIndexEntries(header, stream, strings);
}

// The predefined encoding 1 is taken as an offset like any other value but 0: required.
bool FS_CFFInfo::readEncoding(const cff::CffTable& table, const Places& places) {
  if (places.encoding == 0) return true;
  return places.encoding > 0 &&
         cff::readEncoding(*table.stream, table.at(places.encoding), encodingCodes);
}

// A font with a predefined charset need not even have CharStrings here.
bool FS_CFFInfo::readCharset(const cff::CffTable& table, const Places& places) {
  if (places.charset >= 0 && places.charset <= kLastPredefinedCharset) return true;
  unsigned glyphCount = 0;
  if (places.charset < 0 || !readGlyphCount(table, places.charStrings, glyphCount)) return false;
  cff::Charset charset;
  const bool read = cff::readCharset(*table.stream, table.at(places.charset), glyphCount, charset);
  charsetSIDs = std::move(charset.sids);
  sidRanges = std::move(charset.sidRanges);
  gidRanges = std::move(charset.gidRanges);
  return read;
}

unsigned short FS_CFFInfo::getCIDFromGID(unsigned short gid) const {
  if (gid == 0) return 0;
  if (gid > charsetSIDs.size()) return lookUpRange(gidRanges, gid, 0);
  return charsetSIDs[gid - 1U];
}

unsigned short FS_CFFInfo::getGIDFromCID(unsigned short cid) const {
  const auto found = std::find(charsetSIDs.begin(), charsetSIDs.end(), cid);
  if (found == charsetSIDs.end()) return lookUpRange(sidRanges, cid, kNoGlyph);
  return static_cast<unsigned short>(found - charsetSIDs.begin() + 1);
}

bool FS_CFFInfo::getSIDString(unsigned short sid, std::string& out) const {
  if (sid < type1::kStandardStringCount) {
    out = type1::kStandardStrings[sid];
    return true;
  }
  const std::size_t own = sid - type1::kStandardStringCount;
  if (own >= strings.size()) return false;
  out = strings[own];
  return true;
}

unsigned short FS_CFFInfo::lookUpRange(const std::vector<FS_CFFRange>& ranges, unsigned short key,
                                       unsigned short missing) {
  const FS_CFFRange* range = cff::findRange(ranges, key);
  if (range == nullptr) return missing;
  return static_cast<unsigned short>(key + range->mappedFirst - range->first);
}

int FS_CFFInfo::topInteger(Keyword keyword) const {
  return itemOf(topDict, keyword).getIntegerValue();
}

namespace cff {

bool readFDSelect(const CffTable& table, const FS_CFFInfo& info, std::vector<FS_FDRange>& out) {
  return readFDSelect(table, info.topInteger(Keyword::kFDSelect),
                      info.topInteger(Keyword::kCharStrings), out);
}

bool readFDArray(const CffTable& table, const FS_CFFInfo& info, FontDicts& out) {
  return readFDArray(table, info.topInteger(Keyword::kFDArray), out);
}

}  // namespace cff
}  // namespace QXFontService_NS
