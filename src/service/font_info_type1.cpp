#include "qxfontservice/font_info.h"

#include "font/contract/base_font.h"
#include "service/boundary.h"

namespace QXFontService_NS {

using service::askFont;
using service::atBoundary;

namespace {

using Font = FS_BaseFont;

// No stream is passed: the font reads its own file.
constexpr std::istream* kOwnFile = nullptr;

}  // namespace

unsigned short FS_FontInfo::getType1CharCode(int character) const {
  return askFont<&Font::getType1CharCode>(font_, 0, character, entry_);
}
unsigned short FS_FontInfo::getType1GlyphIDCode(unsigned short gid) const {
  return askFont<&Font::getType1GlyphIDCode>(font_, 0, gid, entry_);
}
const Type1CMapArray* FS_FontInfo::getType1CMapArray(unsigned char page) const {
  return askFont<&Font::getType1CMapArray>(font_, nullptr, page, entry_);
}
bool FS_FontInfo::getType1CMapPair(unsigned char page, int index, unsigned char& code,
                                   std::string& name) const {
  return askFont<&Font::getType1CMapPair>(font_, false, page, index, code, name, entry_);
}
bool FS_FontInfo::getType1GlyphName(unsigned char page, unsigned char code,
                                    std::string& name) const {
  return askFont<&Font::getType1GlyphName>(font_, false, page, code, name, entry_);
}
bool FS_FontInfo::getType1FontStream(QXMemStream& stream, int& length1, int& length2,
                                     int& length3) const {
  return askFont<&Font::getType1FontStream>(font_, false, stream, length1, length2, length3,
                                            entry_);
}

bool FS_FontInfo::getType1EmbedFont(const GlyphIDs& gids, QXMemStream& out) const {
  if (font_ == nullptr) return false;
  return atBoundary(false, [&] { return font_->getType1EmbedFont(gids, out, entry_, kOwnFile); });
}

bool FS_FontInfo::getType1EmbedFont(unsigned char page, const char* codes, int count,
                                    QXMemStream& stream, int& length1, int& length2,
                                    int& length3) const {
  if (font_ == nullptr) return false;
  return atBoundary(false, [&] {
    return font_->getType1EmbedFont(page, codes, count, stream, length1, length2, length3, entry_);
  });
}

}  // namespace QXFontService_NS
