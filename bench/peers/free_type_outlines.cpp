#include "peers/free_type_outlines.h"

#include FT_OUTLINE_H

#include <algorithm>

namespace qxbench {
namespace {

DecomposedOutline& outlineOf(void* user) {
  return *static_cast<DecomposedOutline*>(user);
}

int add(DecomposedOutline& out, const FT_Vector* point) {
  out.points.push_back(static_cast<float>(point->x) / out.scale);
  out.points.push_back(static_cast<float>(point->y) / out.scale);
  return 0;
}

int moveTo(const FT_Vector* to, void* user) {
  return add(outlineOf(user), to);
}

int lineTo(const FT_Vector* to, void* user) {
  outlineOf(user).kinds.push_back(0);
  return add(outlineOf(user), to);
}

int conicTo(const FT_Vector* control, const FT_Vector* to, void* user) {
  outlineOf(user).kinds.push_back(1);
  add(outlineOf(user), control);
  return add(outlineOf(user), to);
}

int cubicTo(const FT_Vector* control1, const FT_Vector* control2, const FT_Vector* to, void* user) {
  outlineOf(user).kinds.push_back(2);
  add(outlineOf(user), control1);
  add(outlineOf(user), control2);
  return add(outlineOf(user), to);
}

}  // namespace

int setOutlineSize(FT_Face face) {
  const int scale = std::max(4096 / static_cast<int>(face->units_per_EM) & ~1, 10);
  FT_Set_Char_Size(face, 0, static_cast<FT_F26Dot6>(scale) * face->units_per_EM, 0, 0);
  return scale;
}

bool decompose(FT_Face face, unsigned glyph, DecomposedOutline& out) {
  static constexpr FT_Outline_Funcs kCallbacks = {moveTo, lineTo, conicTo, cubicTo, 0, 0};
  if (FT_Load_Glyph(face, glyph, FT_LOAD_DEFAULT) != 0) return false;
  out.kinds.clear();
  out.points.clear();
  return FT_Outline_Decompose(&face->glyph->outline, &kCallbacks, &out) == 0;
}

}  // namespace qxbench
