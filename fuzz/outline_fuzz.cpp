#include "qxfontservice/glyph_draw_info.h"

#include "font_world.h"
#include "support/cff_builder.h"
#include "support/glyf_builder.h"
#include "support/sample_font.h"
#include "support/sample_open_type.h"
#include "target.h"

namespace qxfuzz {
namespace {

constexpr unsigned short kGlyphs = 24;

std::string nested() {
  qxtest::GlyfBuilder glyphs;
  glyphs.square(500).empty().square(600);
  for (unsigned i = 2; i < 20; ++i) glyphs.composite({{i, 5, 5}, {2, 0, 0}});
  qxtest::SfntBuilder font = qxtest::sampleFont();
  std::string maxp = font.bytesOf("maxp");
  maxp[5] = 20;
  return font.table("maxp", maxp).table("glyf", glyphs.glyf()).table("loca", glyphs.loca()).build();
}

std::string calling() {
  qxtest::CffBuilder cff = qxtest::sampleCidCff();
  const std::string subroutine = qxtest::CharStringBuilder().numbers({5, 5}).op(5).op(11).str();
  cff.globalSubrs = {subroutine};
  cff.privates[0].subrs = {subroutine, subroutine};
  cff.glyphs[2] =
      qxtest::CharStringBuilder().numbers({1, 1}).op(21).call(10, 1, 2).call(29, 0, 1).op(14).str();
  return qxtest::sampleOpenType(cff).build();
}

std::vector<std::string> seeds() {
  return {qxtest::sampleFont().build(), nested(), calling(),
          qxtest::sampleOpenType(qxtest::sampleCff()).build()};
}

void drawAll(const QXFontService_NS::FS_FontInfo& font) {
  QXFontService_NS::FS_GlyphDrawInfo glyph;
  (void)font.isGlyphDrawInfoAvialable();
  for (const bool vertical : {false, true})
    for (unsigned short gid = 0; gid < kGlyphs; ++gid)
      (void)font.getGlyphDrawInfo(gid, glyph, vertical);
}

void run(std::string_view input) {
  withFont(std::string(input), ".otf", &drawAll);
}

}  // namespace

extern const Target kOutline;
const Target kOutline{"outline", "glyphs walked, and drawn by FreeType", &seeds, &run};

}  // namespace qxfuzz
