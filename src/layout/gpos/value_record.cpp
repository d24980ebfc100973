#include "layout/gpos/value_record.h"

#include <bit>

#include "layout/records/glyph_record_access.h"
#include "layout/table/graph_reader.h"

namespace QXFontService_NS::layout {
namespace {

/// Takes the fields of a record in their order.
class FieldReader {
 public:
  FieldReader(const QXCommonNS::bytes::ByteView& bytes, std::uint64_t at, ValueFormat format)
      : bytes_(bytes), at_(at), format_(format) {}

  short next(unsigned bit) {
    if (!format_.has(bit)) return 0;
    const short value = bytes_.i16(at_);
    at_ += 2;
    return value;
  }

 private:
  const QXCommonNS::bytes::ByteView& bytes_;
  std::uint64_t at_;
  ValueFormat format_;
};

}  // namespace

std::size_t ValueFormat::size() const {
  constexpr unsigned kFields = 0xFF;
  return 2 * static_cast<std::size_t>(std::popcount(bits_ & kFields));
}

GPOS_ValueRecord readValueRecord(const QXCommonNS::bytes::ByteView& bytes, std::uint64_t at,
                                 ValueFormat format) {
  FieldReader fields(bytes, at, format);
  GPOS_ValueRecord value;
  value.xPlacement = fields.next(ValueFormat::kXPlacement);
  value.yPlacement = fields.next(ValueFormat::kYPlacement);
  value.xAdvance = fields.next(ValueFormat::kXAdvance);
  value.yAdvance = fields.next(ValueFormat::kYAdvance);
  return value;
}

void applyValue(PositionRun& glyphs, int i, ValueFormat format, const GPOS_ValueRecord& value) {
  const auto ifThere = [format](unsigned bit, int field) {
    return format.has(bit) ? field : GlyphRecordAccess::kAbsent;
  };
  glyphs.addValue(i, ifThere(ValueFormat::kXPlacement, value.xPlacement),
                  ifThere(ValueFormat::kYPlacement, -value.yPlacement),
                  ifThere(ValueFormat::kXAdvance, value.xAdvance),
                  ifThere(ValueFormat::kYAdvance, -value.yAdvance));
}

std::size_t KeptBytes::append(GraphReader& reader, std::uint64_t at, std::size_t count,
                              std::size_t size) {
  const std::size_t fitting = reader.countThatFits(at, count, size);
  if (!reader.charge(fitting * size)) return 0;
  const auto records = reader.bytes().slice(at, fitting * size).span();
  bytes_.insert(bytes_.end(), records.begin(), records.end());
  return fitting;
}

}  // namespace QXFontService_NS::layout
