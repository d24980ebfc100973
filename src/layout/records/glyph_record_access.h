#pragma once

#include <climits>
#include <vector>

#include "qxfontservice/glyph_id_array.h"
#include "qxfontservice/glyph_id_array2.h"
#include "qxfontservice/glyph_id_position.h"

namespace QXFontService_NS {

/// What layout does with the public records beyond what hosts may: the sequences inside the
/// arrays, and the moves of `GPOS`.
struct GlyphRecordAccess {
  /// An argument of `addPosition` and `addPosition2` that is not there.
  static constexpr int kAbsent = INT_MIN;

  static std::vector<GlyphIDClassPair>& pairs(GlyphIDArray& array) { return array.pairs_; }
  static const std::vector<GlyphIDClassPair>& pairs(const GlyphIDArray& array) {
    return array.pairs_;
  }
  static std::vector<unsigned int>& words(GlyphIDArray2& array) { return array.words_; }
  static const std::vector<unsigned int>& words(const GlyphIDArray2& array) { return array.words_; }

  /// Moves a glyph: sets where its flag has bit 0x8000, adds elsewhere. Attachments use it.
  static void addPosition(GlyphIDPosition& record, int xPlacement, int yPlacement, int xAdvance,
                          int yAdvance) {
    record.addPosition(xPlacement, yPlacement, xAdvance, yAdvance);
  }
  /// Moves a glyph, adding whatever its flag says. Value records use it.
  static void addPosition2(GlyphIDPosition& record, int xPlacement, int yPlacement, int xAdvance,
                           int yAdvance) {
    record.addPosition2(xPlacement, yPlacement, xAdvance, yAdvance);
  }
  static void clearOutsideGPOSInfo(GlyphIDPosition& record) { record.clearOutsideGPOSInfo(); }
};

}  // namespace QXFontService_NS
