#include "type1_files.h"

#include <vector>

#include "qxcommon/mem_stream.h"
#include "qxfontservice/ext/numbering.h"
#include "qxfontservice/ext/type1_segments.h"
#include "qxfontservice/glyph_draw_info.h"

#include "font_world.h"

namespace qxfuzz {
namespace {

namespace fs = QXFontService_NS;
using fs::FS_FontInfo;

constexpr unsigned short kMostDrawn = 16;

void removeSegments(fs::QXMemStream& program) {
  int lengths[3] = {0, 0, 0};
  fs::QXMemStream bare(nullptr, 4096, false, true);
  fs::ext::removeType1Segments(program, bare, lengths[0], lengths[1], lengths[2]);
}

void writePages(const FS_FontInfo& font) {
  int lengths[3] = {0, 0, 0};
  const std::string codes("\x00 A\x80\x81\xC2\xFF", 7);
  for (const unsigned char page : {0, 1}) {
    fs::QXMemStream out(nullptr, 4096, false, true);
    font.getType1EmbedFont(page, codes.data(), static_cast<int>(codes.size()), out, lengths[0],
                           lengths[1], lengths[2]);
    removeSegments(out);
  }
  fs::QXMemStream whole(nullptr, 4096, false, true);
  font.getType1FontStream(whole, lengths[0], lengths[1], lengths[2]);
  removeSegments(whole);
}

void askType1(const FS_FontInfo& font) {
  askNames(font);
  askMetrics(font);
  std::vector<int> characters;
  for (int code = 0; code < 0x180; ++code) characters.push_back(code);
  for (const int code : {0x2019, 0x20AC, 0x3B2, 0xF041, 0xFB01, 0x1F600, -1})
    characters.push_back(code);
  fs::ext::numberCharacters(font, characters);
  font.hasPairKerningInfo(false);
  font.getPairKerningValue('A', 0x20AC, 0, false);
  font.getEmbedableCharCount();
  fs::FS_GlyphDrawInfo drawn;
  for (unsigned short glyph = 0; glyph < kMostDrawn; ++glyph)
    font.getGlyphDrawInfo(glyph, drawn, false);
  writePages(font);
}

}  // namespace

void feedType1(const std::string& metrics, const std::string& extension, const std::string& program,
               const std::string& programExtension) {
  for (const char* other : {".pfb", ".pfa"}) removeFile(other);
  if (!program.empty()) putFile(programExtension, program);
  withFont(metrics, extension, &askType1);
}

}  // namespace qxfuzz
