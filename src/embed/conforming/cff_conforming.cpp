#include "embed/conforming/cff_conforming.h"

#include <bitset>
#include <optional>
#include <string>
#include <string_view>

#include "common/bytes/byte_writer.h"
#include "embed/cff/dict.h"
#include "embed/cff_subset_closure.h"
#include "embed/cff_subset_dict.h"
#include "embed/cff_subset_index.h"
#include "embed/conforming/cff_structures.h"
#include "embed/conforming/editable_dict.h"
#include "embed/conforming/private_dicts.h"

namespace QXFontService_NS::embed::conforming {

using QXCommonNS::bytes::ByteView;
using QXCommonNS::bytes::ByteWriter;

namespace {

constexpr std::uint16_t kNoGlyph = 0xFFFF;
constexpr std::int32_t kLastPredefinedCharset = 2;
constexpr std::int32_t kLastPredefinedEncoding = 1;
constexpr std::string_view kHeader{"\x01\x00\x04\x04", 4};
const FS_CFFBytes kEmptyGlyph = "\x0E";  // endchar

ByteView viewOf(const std::string& bytes) {
  return {bytes.data(), bytes.size()};
}

unsigned smallestOffSize(std::uint64_t last) {
  return 1U + (last > 0xFF) + (last > 0xFFFF) + (last > 0xFFFFFF);
}

void writeIndex(const std::vector<std::string>& entries, ByteWriter& out) {
  std::uint64_t end = 1;
  for (const std::string& entry : entries) end += entry.size();
  const unsigned offSize = smallestOffSize(end);
  out.u16(static_cast<std::uint16_t>(entries.size()));
  if (entries.empty()) return;
  out.u8(static_cast<std::uint8_t>(offSize));
  writeOffset(out, 1, offSize);
  std::uint32_t offset = 1;
  for (const std::string& entry : entries)
    writeOffset(out, offset += static_cast<std::uint32_t>(entry.size()), offSize);
  for (const std::string& entry : entries) out.text(entry);
}

/// One run: everything is read, then laid out, then written with the offsets of the layout.
class ConformingWriter {
 public:
  ConformingWriter(const CffSubsetSource& source, unsigned glyphCount)
      : source_(source),
        stream_(*source.table.stream),
        glyphCount_(glyphCount),
        privates_(source.table) {}

  bool run(const std::vector<std::uint16_t>& gids) {
    return readNamesAndDict() && openCharStrings() && keep(gids) && closeComposites() &&
           readStructures() && readPrivates() && write();
  }

  std::vector<std::byte> take() { return out_.take(); }

 private:
  bool readNamesAndDict() {
    std::int64_t position = source_.table.at(4);
    FS_CFFIndexHeader header;
    FS_CFFBytes dict;
    if (!copyCFFIndex(stream_, position, names_)) return false;
    if (!readTopDictIndex(stream_, position, header, dict)) return false;
    top_.emplace(viewOf(dict));
    return copyCFFIndex(stream_, position, stringsAndSubrs_) &&
           copyCFFIndex(stream_, position, stringsAndSubrs_);
  }

  bool openCharStrings() {
    if (!cff::readCFFIndexHeader(source_.table, top_->last(cff::kOpCharStrings), charStrings_))
      return false;
    if (glyphCount_ == 0) glyphCount_ = charStrings_.count;
    return glyphCount_ <= charStrings_.count;
  }

  bool keep(const std::vector<std::uint16_t>& gids) {
    kept_.set(0);
    for (const std::uint16_t glyph : gids) {
      if (glyph == kNoGlyph) continue;
      if (glyph >= glyphCount_) return false;
      kept_.set(glyph);
    }
    return true;
  }

  // Parts may be composites themselves; each glyph is looked at once.
  bool closeComposites() {
    const bool isType1 = top_->last(cff::kOpCharstringType) == 1;
    if (source_.info->isCID || isType1) return true;
    CompositeFinder finder(source_,
                           {.isoAdobe = top_->last(cff::kOpCharset) == 0, .emptyPrivate = true});
    if (!finder.open()) return false;
    std::vector<std::uint16_t> open;
    for (unsigned glyph = 0; glyph < glyphCount_; ++glyph)
      if (kept_.test(glyph)) open.push_back(static_cast<std::uint16_t>(glyph));
    for (std::size_t i = 0; i < open.size(); ++i) {
      std::vector<std::uint16_t> parts;
      if (!finder.addParts(open[i], parts)) return false;
      for (const std::uint16_t part : parts) {
        if (part >= glyphCount_ || kept_.test(part)) continue;
        kept_.set(part);
        open.push_back(part);
      }
    }
    return true;
  }

  bool readStructures() {
    const std::int32_t charset = top_->last(cff::kOpCharset);
    const std::int32_t encoding = top_->last(cff::kOpEncoding);
    if (charset > kLastPredefinedCharset &&
        !readCharsetBytes(source_.table, charset, charStrings_.count, charset_))
      return false;
    if (encoding > kLastPredefinedEncoding &&
        !readEncodingBytes(source_.table, encoding, encoding_))
      return false;
    return !top_->has(cff::kOpFDSelect) ||
           readFDSelectBytes(source_.table, top_->last(cff::kOpFDSelect), charStrings_.count,
                             fdSelect_);
  }

  bool readPrivates() {
    if (top_->has(cff::kOpPrivate) && !addPrivate(*top_)) return false;
    if (!top_->has(cff::kOpFDArray)) return true;
    FS_CFFIndexHeader header;
    FS_CFFStrings dicts;
    if (!cff::readCFFIndexHeader(source_.table, top_->last(cff::kOpFDArray), header)) return false;
    if (!cff::readIndexEntries(header, stream_, dicts)) return false;
    for (const FS_CFFBytes& dict : dicts) {
      fontDicts_.emplace_back(viewOf(dict));
      if (fontDicts_.back().has(cff::kOpPrivate) && !addPrivate(fontDicts_.back())) return false;
    }
    return true;
  }

  bool addPrivate(const EditableDict& dict) {
    return privates_.add(dict.last(cff::kOpPrivate), dict.beforeLast(cff::kOpPrivate));
  }

  // Written twice: the first time finds the offsets, which do not change the size of anything.
  bool write() {
    CharStringsBuilder charStrings(stream_, charStrings_, source_.table.length);
    if (!addCharStrings(charStrings)) return false;
    const EditableDict top = *top_;
    const std::vector<EditableDict> fontDicts = fontDicts_;
    for (int round = 0; round < 2; ++round) {
      out_ = {};
      *top_ = round == 0 ? withPlaces(top, {}, {}) : withPlaces(top, starts_, privatePlace(top));
      for (std::size_t i = 0; i < fontDicts.size(); ++i)
        fontDicts_[i] = withPlace(fontDicts[i], privatePlace(fontDicts[i]));
      writeAll(charStrings);
    }
    return out_.size() <= UINT32_MAX;
  }

  bool addCharStrings(CharStringsBuilder& builder) {
    for (unsigned glyph = 0; glyph < glyphCount_; ++glyph) {
      const bool added = kept_.test(glyph) ? builder.add(glyph) : builder.addFiller(kEmptyGlyph, 1);
      if (!added) return false;
    }
    return true;
  }

  struct Starts {
    std::uint32_t charset = 0, encoding = 0, fdSelect = 0, charStrings = 0, fdArray = 0;
  };

  [[nodiscard]] PrivateDicts::Place privatePlace(const EditableDict& dict) const {
    return privates_.placeOf(dict.last(cff::kOpPrivate), dict.beforeLast(cff::kOpPrivate));
  }

  static EditableDict withPlace(EditableDict dict, const PrivateDicts::Place& place) {
    dict.set(cff::kOpPrivate, {place.size, place.offset});
    return dict;
  }

  [[nodiscard]] EditableDict withPlaces(EditableDict dict, const Starts& starts,
                                        const PrivateDicts::Place& place) const {
    if (!charset_.empty()) dict.set(cff::kOpCharset, {starts.charset});
    if (!encoding_.empty()) dict.set(cff::kOpEncoding, {starts.encoding});
    dict.set(cff::kOpFDSelect, {starts.fdSelect});
    dict.set(cff::kOpCharStrings, {starts.charStrings});
    dict.set(cff::kOpFDArray, {starts.fdArray});
    return withPlace(std::move(dict), place);
  }

  void writeAll(const CharStringsBuilder& charStrings) {
    out_.text(kHeader).bytes(names_.view());
    writeIndex({top_->bytes()}, out_);
    out_.bytes(stringsAndSubrs_.view());
    starts_.charset = position();
    out_.text(charset_);
    starts_.encoding = position();
    out_.text(encoding_);
    starts_.fdSelect = position();
    out_.text(fdSelect_);
    starts_.charStrings = position();
    charStrings.write(out_);
    starts_.fdArray = position();
    if (!fontDicts_.empty()) writeFontDicts();
    privates_.write(out_);
  }

  void writeFontDicts() {
    std::vector<std::string> dicts;
    for (const EditableDict& dict : fontDicts_) dicts.push_back(dict.bytes());
    writeIndex(dicts, out_);
  }

  [[nodiscard]] std::uint32_t position() const { return static_cast<std::uint32_t>(out_.size()); }

  const CffSubsetSource& source_;
  std::istream& stream_;
  unsigned glyphCount_;
  ByteWriter names_;
  ByteWriter stringsAndSubrs_;
  std::optional<EditableDict> top_;
  FS_CFFIndexHeader charStrings_;
  std::bitset<0x10000> kept_;
  std::string charset_;
  std::string encoding_;
  std::string fdSelect_;
  std::vector<EditableDict> fontDicts_;
  PrivateDicts privates_;
  Starts starts_;
  ByteWriter out_;
};

}  // namespace

bool makeConformingCff(const CffSubsetSource& source, const std::vector<std::uint16_t>& gids,
                       unsigned glyphCount, std::vector<std::byte>& out) {
  if (!source.table.exists() || source.info == nullptr) return false;
  ConformingWriter writer(source, glyphCount);
  if (!writer.run(gids)) return false;
  out = writer.take();
  return true;
}

}  // namespace QXFontService_NS::embed::conforming
