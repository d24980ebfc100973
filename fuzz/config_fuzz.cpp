#include "qxfontservice/font_service.h"

#include "pool/registry/font_registry.h"
#include "support/memory_platform.h"
#include "support/sample_font.h"
#include "target.h"

namespace qxfuzz {
namespace {

namespace fs = QXFontService_NS;

std::vector<std::string> seeds() {
  return {
      R"(<?xml version="1.0"?>
<font-config mode="default" name-processing-mode="typographic" use-preferred-family="yes"
    otf-metrics-mode="windows">
  <font-folder path="/fonts" recursive="yes">
    <font-entry file="a.ttf" font-size-adjust="1.5" baseline-adjust="-0.2" glyph-list="g.txt"
        skip-glyphname-mapping="yes" use-zero-glyph-id="yes"><unicode-range start="0041" end="5A"/>
    </font-entry>
    <font-entry file="b.ttf" font-exclude="yes"/>
    <font-alias file="a.ttf" entry="0"><alias family-name="Other" weight="700" italic="yes"
        stretch="3"/></font-alias>
  </font-folder>
</font-config>)",
      R"(<font-config><eudc-processing mode="enable"><eudc-range start="E000" end="F8FF"/>
<eudc-system-default mode="enable"/><eudc-map><mapping family-name="QX Sample" file="/fonts/a.ttf"/>
</eudc-map></eudc-processing><name-processing-mode mode="windows-name"/></font-config>)",
      R"(<font-config><font-folder path="${QX}/x"/><font-folder path="@module@"/></font-config>)"};
}

void run(std::string_view input) {
  qxtest::MemoryPlatform world;
  const qxtest::PlatformInPlace inPlace(world);
  static const std::string font = qxtest::sampleFont().build();
  world.file("/fonts/a.ttf", font).file("/fonts/b.ttf", font).file("/fonts/g.txt", "0041;A;\n");
  world.file("/font-config.xml", std::string(input));
  world.setEnvironment("QXFUZZ", "/font-config.xml").setEnvironment("QX", "/fonts");
  fs::QXError error;
  if (fs::FontServiceOpen("QXFUZZ", &error) == fs::FS_ERROR(0)) {
    fs::FS_FontInfo found;
    found.createFont(u"QX Sample", 400, false);
    found.createFont(u"Other", 700, true, 3);
    for (int i = 0; fs::FS_GetFontError(&error, i) > i; ++i) continue;
  }
  fs::resetServiceForTests();
}

}  // namespace

extern const Target kConfig;
const Target kConfig{"config", "configuration files, by opening the service with them", &seeds,
                     &run};

}  // namespace qxfuzz
