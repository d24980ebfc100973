#include "font_world.h"
#include "support/name_builder.h"
#include "table_input.h"
#include "target.h"

namespace qxfuzz {
namespace {

std::vector<std::string> seeds() {
  qxtest::NameBuilder names;
  names.latin(u"QX Sample").windows(1, u"\u30B5\u30F3\u30D7\u30EB", 0x411).macintosh(1, "Sample");
  names.macintosh(1, "\x83T\x83\x93", 11, 1).record(3, 3, 0x804, 1, "\xB2\xE2");
  names.rawRecord(3, 1, 0x409, 4, 40, 10000).windows(16, u"Sample").windows(17, u"Light");
  return {names.build(), qxtest::NameBuilder().latin(u"A").build()};
}

void run(std::string_view input) {
  withFont(fontWithTable("name", input), ".ttf", &askNames);
}

}  // namespace

extern const Target kNames;
const Target kNames{"names", "name tables", &seeds, &run};

}  // namespace qxfuzz
