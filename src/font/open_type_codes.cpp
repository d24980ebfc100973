#include "embed/cff/cff_info.h"
#include "font/open_type.h"

// The codes under which an OpenType font's glyphs are used as Type 1 fonts.
namespace QXFontService_NS {
namespace {

/// The name that the charset gives a glyph; empty where it has none.
std::string glyphName(const FS_CFFInfo& cff, unsigned short gid) {
  std::string name;
  if (!cff.isCID) cff.getSIDString(cff.getCIDFromGID(gid), name);
  return name;
}

}  // namespace

unsigned short FS_OpenType::getType1CharCode(int code, int entry) {
  QXMutex guard(&lock_);
  const auto known = codesByCharacter_.find(code);
  if (known != codesByCharacter_.end()) return known->second;
  const unsigned short given = getType1GlyphIDCode(getGlyphID(code, false, entry), entry);
  return given != 0 ? remember(code, given) : given;
}

unsigned short FS_OpenType::getType1GlyphIDCode(unsigned short gid, int entry) {
  const FS_CFFInfo* cff = getCFFFont(entry);
  if (gid == FS_NO_GLYPH || cff == nullptr) return 0;
  QXMutex guard(&lock_);
  const auto known = codesByGlyph_.find(gid);
  if (known != codesByGlyph_.end()) return known->second;
  advanceCode(type1CodeLimit_);
  return assignNewGlyphCode(gid, glyphName(*cff, gid));
}

const Type1CMapArray* FS_OpenType::getType1CMapArray(unsigned char page, int) {
  return Type1CMap::getType1CMapArray(page);
}

bool FS_OpenType::getType1CMapPair(unsigned char page, int i, unsigned char& code,
                                   std::string& name, int) {
  return Type1CMap::getType1CMapPair(page, i, code, name);
}

bool FS_OpenType::getType1GlyphName(unsigned char page, unsigned char code, std::string& name,
                                    int) {
  return Type1CMap::getType1GlyphName(page, code, name);
}

}  // namespace QXFontService_NS
