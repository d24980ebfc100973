#pragma once

#include <istream>

#include "font/directory/table_directory.h"
#include "font/directory/table_failure.h"
#include "font/names/font_names.h"

namespace QXFontService_NS::names {

/// What reading a `name` table gives.
struct NameTable {
  FontNames names;
  /// Windows records exist for the symbol encoding and for none of the text encodings.
  bool isSymbolic = false;
  /// Two languages give different PostScript names.
  bool psNameDiffers = false;
};

/// Reads OpenType `name` into `out`, the strings of all languages at once.
///
/// `table`: its entry in the directory, or null. `isMacStyle`: the font is read the Macintosh way,
/// so that all Macintosh names count; in other fonts only the family (and the name of a CID font)
/// does, unless nothing else gives the font a name. A failure leaves `out` unfit for use.
[[nodiscard]] TableResult readNameTable(std::istream& stream, const sfnt::TableRecord* table,
                                        bool isMacStyle, NameTable& out);

}  // namespace QXFontService_NS::names
