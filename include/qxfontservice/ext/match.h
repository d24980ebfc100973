#pragma once

#include <vector>

#include "qxcommon/export.h"
#include "qxcommon/text.h"
#include "qxcommon/uri.h"
#include "qxfontservice/extra_font_manager.h"
#include "qxfontservice/font_file_type.h"
#include "qxfontservice/names.h"

namespace QXFontService_NS::ext {

/// The pool that answered a request.
enum class MatchPool { none, extra, alias, main };

/// The table in which the name was found.
enum class MatchTable { none, family, file };

/// How the face was found in its family.
enum class MatchStep {
  none,     ///< not at all
  exact,    ///< weight, slant and stretch as asked
  stretch,  ///< weight and slant as asked, in normal stretch
  upright,  ///< the upright face of the weight stands in for its italic
  rounded,  ///< the weight rounded up to a hundred
  filled    ///< a gap of the family, filled by the nearest weight or the other slant
};

/// A face of a font file, with the style that it has itself.
struct MatchFace {
  QXUri file;                                      ///< as it was found
  int entry = 0;                                   ///< index of the face in the file
  FS_FontFileType fileType = FS_FILETYPE_UNKNOWN;  ///< its kind
  UnicodeString family;                            ///< in the default language
  UnicodeString postScriptName;                    ///< in the default language
  int weight = 0;                                  ///< scale of OpenType usWeightClass
  bool italic = false;                             ///< or oblique
  int stretch = 0;                                 ///< scale of OpenType usWidthClass
};

/// A style of the family that no face has, and the face that answers it.
struct FilledSlot {
  int weight = 0;       ///< 100 to 900 by hundreds
  bool italic = false;  ///< the slant that was missing
  MatchFace face;       ///< with its own style
};

/// Why a request is answered as it is.
struct MatchReport {
  MatchPool pool = MatchPool::none;     ///< whose fonts answered
  MatchTable table = MatchTable::none;  ///< by which kind of name
  MatchStep step = MatchStep::none;     ///< by which step of the fallback
  UnicodeString key;                    ///< the form of the name under which it was found
  MatchFace face;                       ///< the answer
  std::vector<FilledSlot> filled;  ///< by weight, upright first; empty while nothing was filled
  std::vector<MatchFace> losers;   ///< faces of the same name and style that were found later
};

/// Finds a face exactly as `FS_FontInfo::createFont` does and tells why it is the one.
///
/// The lookup is the same, with the same lasting effect: a family whose gaps are filled for this
/// request stays filled. The face is not loaded.
///
/// @param weight scale of OpenType usWeightClass; 0 means 400.
/// @param stretch scale of OpenType usWidthClass; 0 means 5.
/// @param extra a document's fonts, searched first; may be null.
/// @param report receives the explanation; on false it is empty.
/// @return whether any face answers.
QX_EXPORT bool explainMatch(const UnicodeString& family, int weight, bool italic, int stretch,
                            FS_ExtraFonts* extra, MatchReport& report);

}  // namespace QXFontService_NS::ext
