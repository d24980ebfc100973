#include <cstdlib>

#include "qxcommon/mem_stream.h"
#include "qxfontservice/ext/web_font.h"

#include "common/bytes/byte_view.h"
#include "font_world.h"
#include "support/sample_font.h"
#include "support/sample_open_type.h"
#include "support/woff_builder.h"
#include "target.h"

namespace qxfuzz {
namespace {

using QXCommonNS::QXMemStream;
using QXCommonNS::bytes::ByteView;
using QXFontService_NS::FS_FontInfo;

constexpr std::uint64_t kHeaderSize = 44;
constexpr std::uint64_t kEntrySize = 20;

/// A find is not only a crash: what is written is laid out as the format asks for, whatever the
/// font was.
void require(bool holds) {
  if (!holds) std::abort();
}

void checkLayout(ByteView file) {
  const std::uint64_t count = file.u16(12);
  std::uint64_t end = kHeaderSize + kEntrySize * count;
  require(file.u32(8) == file.size());
  for (std::uint64_t i = 0; i < count; ++i) {
    const ByteView entry = file.slice(kHeaderSize + kEntrySize * i, kEntrySize);
    require(entry.u32(4) == end);
    require(entry.u32(8) <= entry.u32(12));
    end += (entry.u32(8) + 3) / 4 * 4;
  }
  require(end == file.size());
}

std::string bytesIn(QXMemStream& stream) {
  std::string bytes(stream.length(), '\0');
  stream.clear();
  stream.seekg(0);
  stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  return bytes;
}

/// Writes both forms and reads them back.
void writeWebFonts(const FS_FontInfo& font) {
  const std::vector<unsigned short> gids = {0, 1, 2, 5, 300, 0xFFFF};
  QXMemStream conforming(nullptr, 4096, false, true);
  if (QXFontService_NS::ext::makeConformingWebFont(font, gids, conforming)) {
    const std::string bytes = bytesIn(conforming);
    checkLayout(ByteView(bytes.data(), bytes.size()));
    withDocumentFont(bytes, ".woff", &askEmbedding);
  }
  QXMemStream specified(nullptr, 4096, false, true);
  if (font.makeWebFont(gids, specified))
    withDocumentFont(bytesIn(specified), ".woff", &askCharacters);
}

std::vector<std::string> seeds() {
  using namespace qxtest;
  return {sampleFont().build(), sampleOpenType(sampleCff()).build(),
          sampleOpenType(sampleCidCff()).build(), WoffBuilder::of(sampleFont()).build()};
}

void run(std::string_view input) {
  for (const char* extension : {".ttf", ".otf", ".woff"})
    withFont(std::string(input), extension, &writeWebFonts);
}

}  // namespace

extern const Target kWebFont;
const Target kWebFont{"web_font", "web fonts written, and read back", &seeds, &run};

}  // namespace qxfuzz
