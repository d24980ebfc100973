#pragma once

#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

#include "common/bytes/byte_view.h"
#include "layout/table/layout_tables.h"

namespace QXFontService_NS::layout {

/// What the readers of one layout table share: its bytes, the number of glyphs, the objects read
/// already, and the memory that may still be spent.
///
/// Offsets are followed as they stand; bytes outside read as 0 and arrays are clipped to what is
/// there. Positions are 64 bits wide, so that sums of offsets do not wrap.
class GraphReader {
 public:
  GraphReader(const FS_LayoutTables& font, QXCommonNS::bytes::ByteView table);

  [[nodiscard]] const FS_LayoutTables& font() const { return font_; }
  [[nodiscard]] const QXCommonNS::bytes::ByteView& bytes() const { return table_; }
  [[nodiscard]] unsigned short u16(std::uint64_t at) const { return table_.u16(at); }
  [[nodiscard]] short i16(std::uint64_t at) const { return table_.i16(at); }
  [[nodiscard]] std::uint32_t u32(std::uint64_t at) const { return table_.u32(at); }

  /// How many of `count` records of `size` bytes each (not 0) stand at `at`.
  [[nodiscard]] std::size_t countThatFits(std::uint64_t at, std::size_t count,
                                          std::size_t size) const;
  /// At most `count` numbers from `at` on, as many as are there. Charged.
  [[nodiscard]] std::vector<unsigned short> words(std::uint64_t at, std::size_t count);

  /// Takes bytes from what the table's objects may use. False once it is spent: the object must
  /// be dropped, and all further ones are.
  bool charge(std::size_t bytes);
  /// Whether nothing is left: a subtable that was being read is to be null.
  [[nodiscard]] bool spent() const { return left_ < 0; }

  /// Takes one entry of what all language systems of the table may hold; false once it is spent.
  bool chargeLangSysEntry();
  /// Takes steps of preparing the lookups' sets of starting glyphs; false once they are spent. Such
  /// sets only save time, so that one of every glyph does as well.
  bool chargeStartSteps(std::size_t steps);

  /// Kinds of objects that are shared by the place they stand at.
  enum Kind : unsigned { kCoverage, kClassDef, kFeature, kScript, kLangSys, kSubTable };
  /// The object of a kind (for a subtable: `kSubTable` + its lookup type) at a place, read with
  /// `read` the first time it is asked for: real fonts point to one object from many places, and
  /// damaged ones from millions.
  template <class Object, class Read>
  std::shared_ptr<const Object> shared(unsigned kind, std::uint64_t at, Read read);

 private:
  struct Place {
    unsigned kind;
    std::uint64_t at;
    bool operator==(const Place&) const = default;
  };
  struct PlaceHash {
    std::size_t operator()(const Place& place) const {
      return static_cast<std::size_t>((place.at * 64 + place.kind) * 0x9E3779B97F4A7C15U);
    }
  };

  const FS_LayoutTables& font_;
  QXCommonNS::bytes::ByteView table_;
  std::int64_t left_;
  std::int64_t startStepsLeft_;
  std::int64_t langSysEntriesLeft_;
  std::unordered_map<Place, std::shared_ptr<const void>, PlaceHash> objects_;
};

template <class Object, class Read>
std::shared_ptr<const Object> GraphReader::shared(unsigned kind, std::uint64_t at, Read read) {
  const Place place{kind, at};
  if (const auto known = objects_.find(place); known != objects_.end())
    return std::static_pointer_cast<const Object>(known->second);
  std::shared_ptr<const Object> object = read();
  objects_.emplace(place, object);
  return object;
}

}  // namespace QXFontService_NS::layout
