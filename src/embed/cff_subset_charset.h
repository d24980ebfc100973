#pragma once

#include <cstdint>
#include <map>
#include <vector>

#include "common/bytes/byte_writer.h"
#include "embed/cff/cff_subset_source.h"

namespace QXFontService_NS::embed {

/// The glyphs of a renumbered font: the source glyph of each key, in the order in which they are
/// written. A key is the CID or SID that the charset gives the glyph.
using KeyedGlyphs = std::map<std::uint16_t, std::uint16_t>;

/// Keys of `glyphs`: in a CID-keyed font the glyph id itself, so that hosts go on using glyph ids
/// as CIDs; else the SID. Of glyphs with one key the first stays; 0xFFFF stands for no glyph.
[[nodiscard]] KeyedGlyphs keyGlyphs(const FS_CFFInfo& info,
                                    const std::vector<std::uint16_t>& glyphs);

/// Writes the charset: format 1, or format 2 where a run of keys is longer than format 1 can tell.
void writeCharset(const KeyedGlyphs& glyphs, QXCommonNS::bytes::ByteWriter& out);

/// Writes FDSelect format 3 for the new glyph order from the source's FDSelect at a table offset.
///
/// The source's format byte is not looked at, so that format 0 is read as if it were 3; and the
/// walk goes forward only, so a glyph below the one before it keeps that one's Font DICT: both
/// kept. False for a short read and for a source without ranges.
[[nodiscard]] bool writeFDSelect(const cff::CffTable& table, std::int64_t fdSelect,
                                 const KeyedGlyphs& glyphs, QXCommonNS::bytes::ByteWriter& out);

}  // namespace QXFontService_NS::embed
