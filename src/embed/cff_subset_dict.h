#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "common/bytes/byte_writer.h"
#include "embed/cff/index.h"

namespace QXFontService_NS::embed {

/// An operand of a Top DICT that leads to a structure of the table.
struct DictPlace {
  std::size_t operand = 0;  ///< where the operand begins in the DICT that is written
  std::int32_t offset = 0;  ///< its value: the offset of the structure in the source table
  std::int32_t size = 0;    ///< of `Private`: its size in bytes
};

/// The operands of a Top DICT that lead to structures, as far as they are there.
struct DictPlaces {
  std::optional<DictPlace> charset;
  std::optional<DictPlace> fdSelect;
  std::optional<DictPlace> charStrings;
  std::optional<DictPlace> fdArray;
  std::optional<DictPlace> privateDict;
  std::int32_t charstringType = 2;
};

/// Rewrites a Top DICT for a font whose glyphs are renumbered: `version` and `Encoding` go with
/// their last operand, offsets become 5-byte placeholders (29 and four zero bytes), all else is
/// copied as it stands.
[[nodiscard]] std::string rewriteTopDict(const FS_CFFBytes& source, DictPlaces& places);

/// Where the offsets of a Top DICT that goes out unchanged stand.
[[nodiscard]] DictPlaces findPlaces(const FS_CFFBytes& source);

/// Reads the Top DICT INDEX at `position`: its head and its one DICT, and moves `position` behind
/// it. False with any other count, for writers copy the count as it is.
[[nodiscard]] bool readTopDictIndex(std::istream& stream, std::int64_t& position,
                                    FS_CFFIndexHeader& header, FS_CFFBytes& dict);

/// Writes a Top DICT INDEX of one DICT with offsets of `offSize` bytes; gives where the DICT
/// stands.
std::size_t writeTopDictIndex(QXCommonNS::bytes::ByteWriter& out, const std::string& dict,
                              unsigned offSize);

/// Lowers the offset of each `Private` operator of a Font DICT by `delta`, in the form that the
/// operand has, and gives the new size of the DICT: an operand of two bytes whose new value fits
/// one makes it a byte shorter. A value that does not fit its form is cut to it.
///
/// One-byte operands are written as value + 117, not the format's 139: kept, hosts know files
/// written so.
[[nodiscard]] std::size_t patchPrivateOffset(std::span<std::byte> fontDict, std::int64_t delta);

/// Copies the FDArray INDEX at `position` with the offsets of its Font DICTs lowered by `delta`,
/// and moves `position` behind it. The offset array goes out unchanged, even where a DICT got
/// shorter.
[[nodiscard]] bool copyFontDicts(std::istream& stream, std::int64_t& position, std::int64_t delta,
                                 QXCommonNS::bytes::ByteWriter& out);

}  // namespace QXFontService_NS::embed
