#include "support/sample_font.h"

#include "support/cmap_builder.h"
#include "support/glyf_builder.h"
#include "support/name_builder.h"
#include "support/table_builders.h"

namespace qxtest {

SfntBuilder sampleFont() {
  GlyfBuilder glyphs;
  glyphs.square(500).empty().square(600).composite({{2, 10, 20}});
  CmapBuilder cmap;
  cmap.add(3, 1, CmapBuilder::format4({{0x20, 0x20, 1 - 0x20}, {0x41, 0x42, 2 - 0x41}}));
  const MetricsBuilder widths{.metrics = {{500, 0}, {250, 0}, {600, 0}, {600, 10}}, .bearings = {}};
  SfntBuilder font;
  font.table("OS/2", Os2Builder().build());
  font.table("cmap", cmap.build());
  font.table("glyf", glyphs.glyf());
  font.table("head", HeadBuilder().build());
  font.table("hhea", HheaBuilder{.numberOfMetrics = 4}.build());
  font.table("hmtx", widths.build());
  font.table("loca", glyphs.loca());
  font.table("maxp", MaxpBuilder{.numGlyphs = 4}.build());
  font.table("name", NameBuilder().latin(u"QX Sample").build());
  font.table("post", PostBuilder().build());
  return font;
}

}  // namespace qxtest
