#pragma once

#include <set>

#include "qxcommon/export.h"
#include "qxfontservice/font_file_type.h"
#include "qxfontservice/names.h"

namespace QXFontService_NS {

class FS_ExtraFontPool;
/// The fonts of one document, as they are passed to `FS_FontInfo`.
using FS_ExtraFonts = FS_ExtraFontPool;

/// The fonts that a document brings along. They are searched before the service's own fonts and
/// never enter its registry.
///
/// Fonts are only ever added. Handles made from a manager must be gone before it is destroyed.
class QX_EXPORT FS_ExtraFontManager {
 public:
  /// A manager with a pool of its own; `other`, unless null, gives it the same fonts to start with.
  explicit FS_ExtraFontManager(const FS_ExtraFontManager* other = nullptr);
  FS_ExtraFontManager(const FS_ExtraFontManager&) = delete;
  ~FS_ExtraFontManager();

  /// Makes both managers name one pool: the host sees to it that only one of them is destroyed.
  FS_ExtraFontManager& operator=(const FS_ExtraFontManager& other);

  /// The set to pass to `FS_FontInfo`; owned by the manager.
  FS_ExtraFonts* getExtraFonts() const;
  /// How many fonts were added; their numbers are 0 to one less.
  int getFontsCount() const;

  /// Adds a font under a family name, or a further family name to a font added before.
  ///
  /// A web font is found by the names it was added under, at once. A font of any other kind is
  /// found by no name until a further one is added: then by these and by its own.
  ///
  /// @param uri the font's location, `data:` included; a URI known already keeps its first style.
  /// @param type the file's kind; 0 lets content type, extension and first bytes tell.
  /// @param weight,style what the document declares; weight 0 and style -1 leave it to the font.
  /// @param error may be null; on failure the reason, on success code 0 or, as a warning that the
  ///   font may not be embedded, FS_ERROR_FONTFACE_UNEMBEDDABLE.
  /// @return the font's number, -1 on failure, which leaves the manager as it was.
  /// May be called from any thread; calls on all managers run one after the other.
  int appendExtraFont(const UnicodeString& uri, FS_FontFileType type, const UnicodeString& family,
                      int weight, int style, QXError* error);

  /// The family names under which font `index` was added; null for an index that has no font.
  const std::set<UnicodeString>* getExtraFontFamilies(int index) const;

  /// Describes font `index`. Each output may be null; all are first reset to 0, false and empty.
  /// @return the font's kind, 0 for an index that has no font.
  FS_FontFileType getExtraFontFaceName(int index, UnicodeString* name, int* weight, bool* italic,
                                       int* stretch) const;

 private:
  FS_ExtraFontPool* pool_;
};

}  // namespace QXFontService_NS
