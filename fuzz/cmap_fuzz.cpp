#include "font_world.h"
#include "support/cmap_builder.h"
#include "table_input.h"
#include "target.h"

namespace qxfuzz {
namespace {

using qxtest::CmapBuilder;

std::vector<std::string> seeds() {
  const std::string segments =
      CmapBuilder::format4({{0x20, 0x20, 1 - 0x20}, {0x41, 0x43, 0, {2, 3, 2}}});
  return {CmapBuilder().add(3, 1, segments).build(),
          CmapBuilder().add(3, 0, segments).add(1, 0, CmapBuilder::format0({{65, 2}})).build(),
          CmapBuilder()
              .add(3, 2, CmapBuilder::format2({{{}, 0x40, 0, {1, 2}}, {{0x82}, 0x9F, 0, {3}}}))
              .build(),
          CmapBuilder()
              .add(3, 1, segments)
              .add(3, 10, CmapBuilder::format12({{0x20, 0x21, 1}, {0x20000, 0x20001, 2}}))
              .add(0, 5, CmapBuilder::format14({{0xFE00, {{0x3042, 1}}, {{0x3043, 3}}}}))
              .build()};
}

void run(std::string_view input) {
  withFont(fontWithTable("cmap", input), ".ttf", [](const QXFontService_NS::FS_FontInfo& font) {
    askCharacters(font);
    font.getTextWidth(u"AB\U00020000", 12, false, nullptr);
  });
}

}  // namespace

extern const Target kCmap;
const Target kCmap{"cmap", "character maps", &seeds, &run};

}  // namespace qxfuzz
