#include "embed/cff_subset.h"

#include <algorithm>
#include <optional>

#include "embed/cff_subset_dict.h"
#include "embed/cff_subset_index.h"

namespace QXFontService_NS::embed {

using QXCommonNS::bytes::ByteWriter;

namespace {

constexpr std::uint16_t kNoGlyph = 0xFFFF;

/// One run of `makeCFFSubsetFont`: its steps in the order of the output.
class SubsetWriter {
 public:
  explicit SubsetWriter(const CffSubsetSource& source)
      : source_(source), stream_(*source.table.stream), position_(source.table.at(4)) {}

  bool run(const std::vector<std::uint16_t>& gids) {
    out_.text(kCffHeader);
    return copyCFFIndex(stream_, position_, out_) && writeTopDict() && copyUpToCharStrings() &&
           writeCharStrings(gids) && writeInSourceOrder() && (copyTail(), patchOffsets(), true);
  }

  ByteWriter& out() { return out_; }

 private:
  // The DICT keeps its size, so what lies before CharStrings keeps its place.
  bool writeTopDict() {
    FS_CFFIndexHeader header;
    FS_CFFBytes dict;
    if (!readTopDictIndex(stream_, position_, header, dict)) return false;
    places_ = findPlaces(dict);
    if (!places_.charStrings.has_value() || places_.charStrings->offset <= 0) return false;
    forgetUnlessBehindCharStrings(places_.fdArray);
    forgetUnlessBehindCharStrings(places_.privateDict);
    dictPosition_ = writeTopDictIndex(out_, dict, header.offSize);
    return true;
  }

  void forgetUnlessBehindCharStrings(std::optional<DictPlace>& place) const {
    if (place.has_value() && place->offset <= places_.charStrings->offset) place.reset();
  }

  bool copyUpToCharStrings() {
    const std::int64_t end = source_.table.at(places_.charStrings->offset);
    if (!copyExactly(stream_, position_, end - position_, out_)) return false;
    position_ = end;
    return true;
  }

  bool writeCharStrings(const std::vector<std::uint16_t>& gids) {
    FS_CFFIndexHeader header;
    if (!cff::readIndexHeader(stream_, position_, header)) return false;
    CharStringsBuilder builder(stream_, header, source_.table.length);
    if (!builder.add(0) || !addGlyphs(gids, header, builder)) return false;
    builder.write(out_);
    position_ = header.endPosition();
    return true;
  }

  bool addGlyphs(const std::vector<std::uint16_t>& gids, const FS_CFFIndexHeader& header,
                 CharStringsBuilder& builder) {
    std::vector<std::uint16_t> sorted = gids;
    std::sort(sorted.begin(), sorted.end());
    for (const std::uint16_t glyph : sorted) {
      if (glyph == kNoGlyph || glyph < builder.count()) continue;
      if (glyph >= header.count) return false;
      const auto dropped = glyph - static_cast<unsigned>(builder.count());
      if (dropped > 0 && !addFillers(dropped, header, builder)) return false;
      if (!builder.add(glyph)) return false;
    }
    return true;
  }

  bool addFillers(unsigned count, const FS_CFFIndexHeader& header, CharStringsBuilder& builder) {
    if (!filler_.has_value()) {
      const unsigned glyph = source_.spaceGlyph < header.count ? source_.spaceGlyph : 0U;
      if (!cff::readCFFIndexEntry(header, stream_, glyph, filler_.emplace())) return false;
    }
    return builder.addFiller(*filler_, count);
  }

  bool writeInSourceOrder() {
    const bool arrayFirst =
        !places_.privateDict.has_value() ||
        (places_.fdArray.has_value() && places_.fdArray->offset <= places_.privateDict->offset);
    return arrayFirst ? writeFDArray() && writePrivate() : writePrivate() && writeFDArray();
  }

  bool writeFDArray() {
    if (!places_.fdArray.has_value()) return true;
    fdArrayStart_ = out_.size();
    position_ = source_.table.at(places_.fdArray->offset);
    const std::int64_t delta = places_.fdArray->offset - static_cast<std::int64_t>(fdArrayStart_);
    return copyFontDicts(stream_, position_, delta, out_);
  }

  bool writePrivate() {
    if (!places_.privateDict.has_value()) return true;
    privateStart_ = out_.size();
    position_ = source_.table.at(places_.privateDict->offset);
    if (!copyExactly(stream_, position_, places_.privateDict->size, out_)) return false;
    position_ += places_.privateDict->size;
    return true;
  }

  void copyTail() {
    const std::int64_t at = position_ - source_.table.offset;
    const std::int64_t charStrings = places_.charStrings->offset;
    const std::int64_t end = at < charStrings ? charStrings : source_.table.length;
    copyBytes(stream_, position_, end - at, out_);
  }

  void patchOffsets() {
    patch(places_.fdArray, fdArrayStart_);
    patch(places_.privateDict, privateStart_);
  }

  // Four bytes behind the first of the operand, whatever its form: kept. Of a shorter operand they
  // run over the operator and what follows.
  void patch(const std::optional<DictPlace>& place, std::size_t start) {
    if (!place.has_value()) return;
    const ByteWriter::Patch<std::uint32_t> number{dictPosition_ + place->operand + 1};
    if (number.position + 4 <= out_.size()) out_.set(number, static_cast<std::uint32_t>(start));
  }

  const CffSubsetSource& source_;
  std::istream& stream_;
  std::int64_t position_;  // in the source stream
  ByteWriter out_;
  DictPlaces places_;
  std::size_t dictPosition_ = 0;
  std::size_t fdArrayStart_ = 0;
  std::size_t privateStart_ = 0;
  std::optional<FS_CFFBytes> filler_;  // read at the first need
};

}  // namespace

bool makeCFFSubsetFont(const CffSubsetSource& source, const std::vector<std::uint16_t>& gids,
                       QXCommonNS::QXMemStream& out) {
  if (gids.empty() || !source.table.exists()) return false;
  SubsetWriter writer(source);
  if (!writer.run(gids)) return false;
  writeTo(out, writer.out());
  return true;
}

}  // namespace QXFontService_NS::embed
