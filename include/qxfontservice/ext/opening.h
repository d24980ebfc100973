#pragma once

#include <cstddef>
#include <vector>

#include "qxcommon/error.h"
#include "qxcommon/export.h"
#include "qxcommon/text.h"
#include "qxcommon/uri.h"
#include "qxfontservice/names.h"

namespace QXFontService_NS::ext {

using QXCommonNS::QXError;
using QXCommonNS::QXUri;

/// How far the reading of font files has come.
struct OpeningProgress {
  std::size_t files = 0;  ///< font files read so far, those among them that were refused
  std::size_t faces = 0;  ///< faces found in them
  UnicodeString folder;   ///< local path of the folder that is being read
};

/// Told of each folder that is begun and of each font file that was read, while the service opens
/// and while a folder is added at run time.
///
/// It looks on and changes nothing: opening goes on to its end and answers the same with an
/// observer and without. It is called under the service's lock, on the thread that opens, and must
/// not call the service.
///
/// What `read` throws is kept until opening is complete; it then passes to the host out of the
/// call of `FontServiceOpen` or `FS_AddFontFolderPath`, and until it has passed the observer is not
/// called again. Any other call that opens the service on its way answers as ever, and the next
/// call of one of those two passes it.
class OpeningObserver {
 public:
  /// Told after each step; `progress` lives through the call only.
  virtual void read(const OpeningProgress& progress) = 0;

 protected:
  ~OpeningObserver() = default;
};

/// Sets who is told; counts begin at 0 again. Call it before the first call of the service, which
/// is the one that opens.
///
/// @param observer borrowed, until another is set; null for nobody.
QX_EXPORT void setOpeningObserver(OpeningObserver* observer);

/// A folder of fonts, and what was taken from it.
struct OpenedFolder {
  UnicodeString path;     ///< local path, with its separator at the end
  std::size_t files = 0;  ///< files whose fonts the service knows
  std::size_t faces = 0;  ///< faces in them
};

/// An error of opening, and the file that it is about.
struct OpeningError {
  QXError error;  ///< as `FS_GetFontError` tells it
  QXUri file;     ///< the font or the configuration; empty where the error is about neither
};

/// @file
/// What opening the service did. What is asked here is told as it stands, on any thread, and
/// nothing is opened for it: before the service is open, all answers are empty. After an opening
/// that failed they tell how far it came.

/// The configuration file that was read; empty where the service found the system's fonts itself.
QX_EXPORT QXUri openedConfiguration();

/// All folders that the service knows, in the order in which they were scanned, behind them those
/// added at run time. Folders that only hold single files of the system's list are among them.
QX_EXPORT std::vector<OpenedFolder> openedFolders();

/// The errors of `FS_GetFontError`, in its order, each with its file.
QX_EXPORT std::vector<OpeningError> openingErrors();

/// Type 1 files without a partner in their folder: metrics (AFM, PFM), whose faces have no
/// outlines, and font programs (PFB, PFA), which are not found at all without metrics. In the order
/// in which they were met; files that the configuration excludes are not told.
QX_EXPORT std::vector<QXUri> unpairedType1Files();

}  // namespace QXFontService_NS::ext
