#include "peers/harfbuzz_font.h"

#include <hb-ot.h>

namespace qxbench {

HarfBuzzFont::HarfBuzzFont(const std::string& bytes)
    : blob(hb_blob_create(bytes.data(), static_cast<unsigned>(bytes.size()),
                          HB_MEMORY_MODE_READONLY, nullptr, nullptr)),
      face(hb_face_create(blob.get(), 0)),
      font(hb_font_create(face.get())) {
  hb_ot_font_set_funcs(font.get());
}

}  // namespace qxbench
