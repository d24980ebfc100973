// Finds a face by its family and writes the part of its font that a text needs.
//
//   embed_family FAMILY TEXT FILE

#include <fstream>
#include <iostream>
#include <vector>

#include "qxcommon/error.h"
#include "qxcommon/mem_stream.h"
#include "qxfontservice/font_service.h"

using namespace QXFontService_NS;

// [glyphs]
// The glyphs of a text, in its order; empty when the face lacks a character.
static std::vector<unsigned short> glyphsOf(const FS_FontInfo& font, const UnicodeString& text) {
  std::vector<unsigned short> glyphs(static_cast<std::size_t>(text.length()));
  int count = text.length();
  int firstMissing = -1;
  if (!font.getGlyphIDs(text, glyphs.data(), count, false, &firstMissing)) return {};
  if (firstMissing >= 0) return {};
  glyphs.resize(static_cast<std::size_t>(count));
  return glyphs;
}
// [glyphs end]

// [embed]
static bool embed(const UnicodeString& family, const UnicodeString& text, const char* file) {
  FS_FontInfo font;
  if (!font.createFont(family, 400, false)) return false;
  if (!font.canEmbedFont()) return false;
  const std::vector<unsigned short> glyphs = glyphsOf(font, text);
  QXCommonNS::QXMemStream subset(nullptr, 8192, false, true);
  if (glyphs.empty() || !font.getEmbedFont(glyphs, subset)) return false;
  std::ofstream out(file, std::ios::binary);
  out << subset.rdbuf();
  return out.good();
}
// [embed end]

int main(int count, char** arguments) {
  if (count != 4) return 2;
  QXCommonNS::QXError error;
  if (FontServiceOpen(nullptr, &error) != FS_ERROR_NONE) return 5;
  const bool done = embed(UnicodeString::fromUTF8(arguments[1]),
                          UnicodeString::fromUTF8(arguments[2]), arguments[3]);
  FontServiceClose();
  if (!done) std::cerr << "embed_family: no such face, or it may not be embedded\n";
  return done ? 0 : 1;
}
