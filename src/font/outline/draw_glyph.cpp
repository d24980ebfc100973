#include "font/outline/draw_glyph.h"

#include <algorithm>

#include "font/outline/outline_recorder.h"

namespace QXFontService_NS::outline {
namespace {

constexpr int kUnitsOfAnEm = 4096;
constexpr int kLeastScale = 10;

// Setting a size runs the font's programs, so the service's own size is set once a face. The mark
// stands in the size object, since that is what another size would replace.
void setSize(FT_Face face, int scale) {
  if (face->size != nullptr && face->size->generic.data == face) return;
  FT_Set_Char_Size(face, 0, static_cast<FT_F26Dot6>(scale) * face->units_per_EM, 0, 0);
  if (face->size != nullptr) face->size->generic.data = face;
}

bool load(FT_Face face, unsigned short gid, bool vertical) {
  if (gid >= face->num_glyphs) return false;
  if (vertical) return FT_Load_Glyph(face, gid, FT_LOAD_VERTICAL_LAYOUT) == 0;
  return FT_Load_Glyph(face, gid, 0) == 0 ||
         FT_Load_Glyph(face, gid, FT_LOAD_IGNORE_GLOBAL_ADVANCE_WIDTH) == 0;
}

/// Nearly all values fit an int, whose division takes a third of the time.
int toUnits(FT_Pos value, int scale) {
  const int narrow = static_cast<int>(value);
  return narrow == value ? narrow / scale : static_cast<int>(value / scale);
}

void fillMetrics(const FT_Glyph_Metrics& metrics, int scale, FS_GlyphDrawInfo& info) {
  const auto units = [scale](FT_Pos value) { return toUnits(value, scale); };
  info.width = units(metrics.width);
  info.height = units(metrics.height);
  info.horiBearingX = units(metrics.horiBearingX);
  info.horiBearingY = units(metrics.horiBearingY);
  info.horiAdvance = units(metrics.horiAdvance);
  info.vertBearingX = units(metrics.vertBearingX);
  info.vertBearingY = units(metrics.vertBearingY);
  info.vertAdvance = units(metrics.vertAdvance);
}

void fillFaceBox(const FT_BBox& box, FS_GlyphDrawInfo& info) {
  info.xMin = static_cast<int>(box.xMin);
  info.yMin = static_cast<int>(box.yMin);
  info.xMax = static_cast<int>(box.xMax);
  info.yMax = static_cast<int>(box.yMax);
}

}  // namespace

int drawScale(int unitsPerEm) {
  const int scale = unitsPerEm > 0 ? kUnitsOfAnEm / unitsPerEm : 0;
  return std::max(scale & ~1, kLeastScale);
}

bool drawGlyph(FT_Face face, unsigned short gid, FS_GlyphDrawInfo& info, bool vertical) {
  info.valid = false;
  const int scale = drawScale(face->units_per_EM);
  setSize(face, scale);
  if (!load(face, gid, vertical)) return false;
  FT_GlyphSlot slot = face->glyph;
  fillMetrics(slot->metrics, scale, info);
  fillFaceBox(face->bbox, info);
  recordOutline(slot->outline, scale, info);
  info.valid = true;
  return true;
}

}  // namespace QXFontService_NS::outline
