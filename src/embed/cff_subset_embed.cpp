#include "embed/cff_subset_embed.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "embed/cff_subset_charset.h"
#include "embed/cff_subset_closure.h"
#include "embed/cff_subset_dict.h"
#include "embed/cff_subset_index.h"

namespace QXFontService_NS::embed {

using QXCommonNS::bytes::ByteWriter;

namespace {

constexpr std::uint16_t kNoGlyph = 0xFFFF;

/// One run of `makeCFFEmbedFont`: its steps in the order of the output.
class EmbedWriter {
 public:
  explicit EmbedWriter(const CffSubsetSource& source)
      : source_(source), stream_(*source.table.stream), position_(source.table.at(4)) {}

  /// Everything that stands before the charset, and with it which glyphs are written.
  bool begin(const std::vector<std::uint16_t>& gids) {
    glyphs_ = gids;
    out_.text(kCffHeader);
    const bool begun = copyCFFIndex(stream_, position_, out_) && writeTopDict() &&
                       copyCFFIndex(stream_, position_, out_) &&
                       copyCFFIndex(stream_, position_, out_) && openCharStrings() &&
                       closeComposites();
    if (begun) keyed_ = keyGlyphs(*source_.info, glyphs_);
    return begun;
  }

  bool run(const std::vector<std::uint16_t>& gids) {
    return begin(gids) && writeCharsetAndFDSelect() && writeInSourceOrder() &&
           (copyTail(), patchOffsets(), true);
  }

  ByteWriter& out() { return out_; }
  KeyedGlyphs& keyedGlyphs() { return keyed_; }

 private:
  enum class Part { charStrings, fdArray, privateDict };
  struct PartPlace {
    std::int32_t offset;
    Part part;
  };

  bool writeTopDict() {
    FS_CFFIndexHeader header;
    FS_CFFBytes dict;
    if (!readTopDictIndex(stream_, position_, header, dict)) return false;
    const std::string rewritten = rewriteTopDict(dict, places_);
    if (!places_.charset.has_value() || !places_.charStrings.has_value()) return false;
    dictPosition_ = writeTopDictIndex(out_, rewritten, topDictOffSize(rewritten.size() + 1));
    return true;
  }

  bool openCharStrings() {
    if (!cff::readCFFIndexHeader(source_.table, places_.charStrings->offset, charStrings_))
      return false;
    return std::all_of(glyphs_.begin(), glyphs_.end(), [this](std::uint16_t glyph) {
      return glyph == kNoGlyph || glyph < charStrings_.count;
    });
  }

  // With a custom encoding the composites of a font lose their parts: kept.
  bool closeComposites() {
    const FS_CFFInfo& info = *source_.info;
    if (info.isCID || places_.charstringType != 2 || !info.encodingCodes.empty()) return true;
    return addCompositeGlyphs(source_, glyphs_);
  }

  bool writeCharsetAndFDSelect() {
    starts_.charset = out_.size();
    writeCharset(keyed_, out_);
    if (places_.fdSelect.has_value()) {
      starts_.fdSelect = out_.size();
      if (!writeFDSelect(source_.table, places_.fdSelect->offset, keyed_, out_)) return false;
    }
    starts_.charStrings = starts_.fdArray = starts_.privateDict = out_.size();
    return true;
  }

  [[nodiscard]] std::vector<PartPlace> partsInSourceOrder() const {
    std::vector<PartPlace> parts{{places_.charStrings->offset, Part::charStrings}};
    if (places_.fdArray.has_value()) parts.push_back({places_.fdArray->offset, Part::fdArray});
    if (places_.privateDict.has_value())
      parts.push_back({places_.privateDict->offset, Part::privateDict});
    parts.erase(std::remove_if(parts.begin(), parts.end(),
                               [](const PartPlace& part) { return part.offset == 0; }),
                parts.end());
    std::stable_sort(parts.begin(), parts.end(),
                     [](const PartPlace& a, const PartPlace& b) { return a.offset < b.offset; });
    return parts;
  }

  bool writeInSourceOrder() {
    const std::vector<PartPlace> parts = partsInSourceOrder();
    for (std::size_t i = 0; i < parts.size(); ++i) {
      const std::int32_t next = i + 1 < parts.size() ? parts[i + 1].offset : 0;
      if (parts[i].offset < 0 || !writePart(parts[i], next)) return false;
    }
    return true;
  }

  bool writePart(const PartPlace& part, std::int32_t next) {
    position_ = source_.table.at(part.offset);
    switch (part.part) {
      case Part::charStrings:
        return writeCharStrings();
      case Part::fdArray:
        return writeFDArray(part.offset, next);
      case Part::privateDict:
        return writePrivate();
    }
    return false;
  }

  bool writeCharStrings() {
    starts_.charStrings = out_.size();
    CharStringsBuilder builder(stream_, charStrings_, source_.table.length);
    if (!builder.add(0)) return false;
    for (const auto& [key, glyph] : keyed_) {
      if (glyph == 0) {
        builder.repeat(0);
      } else if (!builder.add(glyph)) {
        return false;
      }
    }
    builder.write(out_);
    position_ = charStrings_.endPosition();
    return true;
  }

  // Private DICTs and subroutines of the Font DICTs lie behind the FDArray and keep their distance
  // from it, which is what makes one shift right for all of them.
  bool writeFDArray(std::int32_t offset, std::int32_t next) {
    starts_.fdArray = out_.size();
    const std::int64_t delta = offset - static_cast<std::int64_t>(starts_.fdArray);
    if (!copyFontDicts(stream_, position_, delta, out_)) return false;
    if (next != 0) copyUpTo(next);
    return true;
  }

  bool writePrivate() {
    starts_.privateDict = out_.size();
    if (!copyExactly(stream_, position_, places_.privateDict->size, out_)) return false;
    position_ += places_.privateDict->size;
    return true;
  }

  // The tail brings the local subroutines of a name-keyed font, behind its Private DICT.
  void copyTail() {
    const std::int64_t at = position_ - source_.table.offset;
    if (places_.charStrings->offset > at) return copyUpTo(places_.charStrings->offset);
    if (places_.fdSelect.has_value() && places_.fdSelect->offset > at)
      return copyUpTo(places_.fdSelect->offset);
    copyUpTo(source_.table.length);
  }

  // What is not there to be copied is left out, and nobody minds: kept.
  void copyUpTo(std::int64_t tableOffset) {
    const std::int64_t count = source_.table.at(tableOffset) - position_;
    if (count > 0) position_ += copyBytes(stream_, position_, count, out_);
  }

  void patchOffsets() {
    patch(places_.charset, starts_.charset);
    patch(places_.charStrings, starts_.charStrings);
    patch(places_.fdSelect, starts_.fdSelect);
    patch(places_.fdArray, starts_.fdArray);
    patch(places_.privateDict, starts_.privateDict);
  }

  void patch(const std::optional<DictPlace>& place, std::size_t start) {
    if (!place.has_value()) return;
    const ByteWriter::Patch<std::uint32_t> number{dictPosition_ + place->operand + 1};
    out_.set(number, static_cast<std::uint32_t>(start));
  }

  const CffSubsetSource& source_;
  std::istream& stream_;
  std::int64_t position_;  // in the source stream
  ByteWriter out_;
  std::vector<std::uint16_t> glyphs_;
  KeyedGlyphs keyed_;
  FS_CFFIndexHeader charStrings_;
  DictPlaces places_;
  std::size_t dictPosition_ = 0;
  struct {
    std::size_t charset = 0, fdSelect = 0, charStrings = 0, fdArray = 0, privateDict = 0;
  } starts_;  // of the structures in the output
};

bool canEmbed(const CffSubsetSource& source, const std::vector<std::uint16_t>& gids) {
  return !gids.empty() && source.table.exists() && source.info != nullptr;
}

}  // namespace

bool makeCFFEmbedFont(const CffSubsetSource& source, const std::vector<std::uint16_t>& gids,
                      QXCommonNS::QXMemStream& out) {
  if (!canEmbed(source, gids)) return false;
  EmbedWriter writer(source);
  if (!writer.run(gids)) return false;
  writeTo(out, writer.out());
  return true;
}

KeyedGlyphs cffEmbedGlyphs(const CffSubsetSource& source, const std::vector<std::uint16_t>& gids) {
  if (!canEmbed(source, gids)) return {};
  EmbedWriter writer(source);
  return writer.begin(gids) ? std::move(writer.keyedGlyphs()) : KeyedGlyphs();
}

}  // namespace QXFontService_NS::embed
