#pragma once

#include <hb.h>

#include <memory>
#include <string>

namespace qxbench {

struct HarfBuzzFree {
  void operator()(hb_blob_t* blob) const { hb_blob_destroy(blob); }
  void operator()(hb_face_t* face) const { hb_face_destroy(face); }
  void operator()(hb_font_t* font) const { hb_font_destroy(font); }
  void operator()(hb_buffer_t* buffer) const { hb_buffer_destroy(buffer); }
  void operator()(hb_set_t* set) const { hb_set_destroy(set); }
};
template <class T>
using HarfBuzz = std::unique_ptr<T, HarfBuzzFree>;

/// A font over bytes that outlive it, with HarfBuzz's own reading of the tables.
struct HarfBuzzFont {
  explicit HarfBuzzFont(const std::string& bytes);

  HarfBuzz<hb_blob_t> blob;
  HarfBuzz<hb_face_t> face;
  HarfBuzz<hb_font_t> font;
};

}  // namespace qxbench
