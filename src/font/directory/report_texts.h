#pragma once

#include <cstddef>
#include <string>

/// What is reported when an sfnt font cannot be read: the details behind "Font read error" (a read
/// came up short) and "Font file error" (something is absent or wrong). "%d" takes a number.
namespace QXFontService_NS::sfnt::texts {

// short reads
inline constexpr char kOffsetTableRead[] = "Offset table read error";
inline constexpr char kDirectoryRead[] = "Table directory read error";
inline constexpr char kHeadRead[] = "'head' table read error";
inline constexpr char kHheaRead[] = "'hhea' table read error";
inline constexpr char kOs2Read[] = "'OS/2' table read error";
inline constexpr char kNameRead[] = "'name' table read error";
inline constexpr char kNameRecordRead[] = "nameRecord read error";
inline constexpr char kNameStringRead[] = "'name' #%d read error";
inline constexpr char kPostRead[] = "'post' table read error";
inline constexpr char kVheaRead[] = "'vhea' table read error";
inline constexpr char kVmtxRead[] = "'vmtx' table metric read error";
inline constexpr char kCffRead[] = "'CFF' table read error";
inline constexpr char kMaxpRead[] = "'maxp' table read error";
inline constexpr char kGdefRead[] = "'GDEF' table read error";
inline constexpr char kGposRead[] = "'GPOS' table read error";
inline constexpr char kGsubRead[] = "'GSUB' table read error";
inline constexpr char kMortRead[] = "'mort' table read error";
/// The line feed is part of the text; the path follows it.
inline constexpr char kCannotOpen[] = "Cannot read font: ";

// absent or wrong
inline constexpr char kNumTables[] = "OffsetTable.numTables = %d";
inline constexpr char kNoOutlines[] = "'glyf' or 'CFF' table not found";
inline constexpr char kNoHead[] = "'head' table not found";
inline constexpr char kNoHhea[] = "'hhea' table not found";
inline constexpr char kNoOs2[] = "'OS/2' table not found";
inline constexpr char kNoName[] = "'name' table not found";
inline constexpr char kNameCount[] = "nameTable.count = %d";
inline constexpr char kNoFontName[] = "'name' table has no font name";
inline constexpr char kNoPost[] = "'post' table not found";
inline constexpr char kCff2[] = "'CFF2' table not supported";
inline constexpr char kNoCff[] = "'CFF' table not found";
inline constexpr char kGlyphClassDef[] = "'GDEF' glyph ClassDef error";
inline constexpr char kMarkAttachClassDef[] = "'GDEF' markAttach ClassDef error";
inline constexpr char kGposFeatures[] = "'GPOS' feature list read error";
inline constexpr char kGposLookups[] = "'GPOS' lookup list read error";
inline constexpr char kGsubFeatures[] = "'GSUB' feature list read error";
inline constexpr char kGsubLookups[] = "'GSUB' lookup list read error";
// "sclipt" is spelled so on purpose: hosts and logs know these texts.
inline constexpr char kGposScripts[] = "'GPOS' sclipt list read error";
inline constexpr char kGsubScripts[] = "'GSUB' sclipt list read error";

/// A text with its "%d" replaced by a number.
inline std::string numbered(std::string text, std::size_t number) {
  return text.replace(text.find("%d"), 2, std::to_string(number));
}

}  // namespace QXFontService_NS::sfnt::texts
