#pragma once

#include <unicode/unistr.h>

#include <memory>
#include <vector>

#include "qxfontservice/font_info.h"
#include "qxfontservice/glyph_id_array2.h"
#include "qxfontservice/glyph_id_position.h"

namespace qxbench {

using Tags = std::vector<unsigned int>;

/// The features a text is set with.
struct LayoutWish {
  unsigned int script = 0;
  Tags forms;  ///< of letters that join, chosen a letter: init, medi, fina, isol
  Tags substitute;
  Tags position;
  bool rightToLeft = false;
};

/// A host of the layout interface with nothing around it: glyph ids, one pass a lookup, advances,
/// one pass a lookup. Its arrays are used again for the next text.
class LayoutHost {
 public:
  /// @param font which outlives the host.
  LayoutHost(const QXFontService_NS::FS_FontInfo& font, LayoutWish wish);

  /// The glyphs of a text in its order, with their advances; valid until the next call.
  const std::vector<QXFontService_NS::GlyphIDPosition>& shape(const icu::UnicodeString& text);

 private:
  void readGlyphs(const icu::UnicodeString& text);
  void chooseForms(const icu::UnicodeString& text);
  void substitute();
  void place();

  struct Release {
    void operator()(QXFontService_NS::FS_GSUBGPOSInfo* info) const {
      QXFontService_NS::FS_FontInfo::deleteGSUBGPOSInfo(info);
    }
  };
  const QXFontService_NS::FS_FontInfo& font_;
  LayoutWish wish_;
  std::unique_ptr<QXFontService_NS::FS_GSUBGPOSInfo, Release> info_;
  std::vector<int> substitutions_;  ///< the lookups of the features, in order
  std::vector<int> positionings_;
  std::vector<unsigned short> ids_;
  std::vector<int> joining_;  ///< types of the letters
  QXFontService_NS::GlyphIDArray2 glyphs_;
  QXFontService_NS::GlyphIDArray2 result_;
  std::vector<QXFontService_NS::GlyphIDPosition> positions_;
};

}  // namespace qxbench
