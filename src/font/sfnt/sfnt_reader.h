#pragma once

#include <istream>

#include "qxfontservice/font_file_type.h"

#include "font/directory/table_failure.h"
#include "font/sfnt/sfnt_records.h"

namespace QXFontService_NS::sfnt {

/// A font that is refused without a report: it is simply not one of ours.
inline constexpr int kSilent = 0;

/// Reads the directory and the small tables of the sfnt font whose offset table `stream` stands at,
/// which need not be the start of the file. The stream stays open.
///
/// `type` is the kind of the font's file: it decides which sfnt versions are taken, whether `OS/2`
/// may be missing, and, for resource forks, that offsets count from the font and not from the file.
/// The steps stand in an order that decides what is reported of a broken font. A failure with the
/// code `kSilent` is none to report; any failure leaves `out` unfit for use.
[[nodiscard]] TableResult readSfntRecords(std::istream& stream, FS_FontFileType type,
                                          SfntRecords& out);

}  // namespace QXFontService_NS::sfnt
