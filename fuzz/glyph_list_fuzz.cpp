#include <map>
#include <sstream>

#include "target.h"
#include "type1/maps/glyph_list.h"

namespace qxfuzz {
namespace {

std::vector<std::string> seeds() {
  return {"0041;A;LATIN CAPITAL LETTER A\n20AC;Euro\n# a comment\n\n 0042;B\n0x43;C;\r\n",
          "10FFFF;last\n110000;none\nA\n;\n0;.notdef;\n"};
}

void run(std::string_view input) {
  std::istringstream stream{std::string(input)};
  std::map<int, std::string> list;
  QXFontService_NS::type1::readGlyphListFile(stream, list);
}

}  // namespace

extern const Target kGlyphList;
const Target kGlyphList{"glyph_list", "glyph lists of the configuration", &seeds, &run};

}  // namespace qxfuzz
