#pragma once

#include "embed/table_directory_image.h"
#include "font/directory/table_directory.h"
#include "font/names/font_names.h"
#include "font/sfnt/head.h"
#include "font/sfnt/hhea.h"
#include "font/sfnt/os2.h"
#include "font/sfnt/post.h"
#include "font/sfnt/vhea.h"

namespace QXFontService_NS::sfnt {

/// What is read of every listed sfnt font: enough to enter it in the pool and to answer for its
/// names and its style without touching the file again.
struct SfntRecords {
  TableDirectory directory;
  FS_TableDirectoryImage image;
  Head head;
  Hhea hhea;
  /// Synthesised where `hasOS2` is false.
  Os2 os2;
  Post post;
  Vhea vhea;
  std::uint16_t numOfLongVerMetrics = 0;
  FontNames names;

  bool hasOS2 = false;
  /// The font is read the Macintosh way: all its Macintosh names and Unicode-platform maps count.
  bool isMacStyle = false;
  bool isFixedPitch = false;
  /// By its names: Windows records for the symbol encoding alone.
  bool isSymbolic = false;
  bool psNameDiffers = false;
};

}  // namespace QXFontService_NS::sfnt
