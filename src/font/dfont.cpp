#include "font/dfont.h"

#include "font/resource_fork.h"

namespace QXFontService_NS {

FS_DFont::FS_DFont(const QXUri& uri, FS_FontFolder* folder) : SfntCollection(uri, folder) {}

FS_DFont::~FS_DFont() = default;

unsigned int FS_DFont::getClassID() const {
  return kClassID;
}

bool FS_DFont::isKindOf(unsigned int id) const {
  return id == kClassID || SfntCollection::isKindOf(id);
}

UnicodeString FS_DFont::getClassName() const {
  return u"FS_DFont";
}

FS_FontFileType FS_DFont::getFontFileType(int) const {
  return FS_FILETYPE_DFONT;
}

bool FS_DFont::readFont(QXError* error, std::istream* stream) {
  std::vector<std::int64_t> offsets;
  if (const TableResult failure = readFontResources(*stream, offsets)) {
    report(error, *failure);
    return false;
  }
  return readMembers(error, *stream, offsets);
}

// The contract's defaults, in the order of the interface; one line each, to be read beside it.
// clang-format off

FS_TrueTypeInfo* FS_DFont::getTrueTypeInfo(int entry) const { return FS_BaseFont::getTrueTypeInfo(entry); }
UnicodeString FS_DFont::getPreferredFamily(QXLang::LanguageID lang, int entry) const { return FS_BaseFont::getPreferredFamily(lang, entry); }
UnicodeString FS_DFont::getPreferredSubFamily(QXLang::LanguageID lang, int entry) const { return FS_BaseFont::getPreferredSubFamily(lang, entry); }
int FS_DFont::getFontStretch(int entry) const { return FS_BaseFont::getFontStretch(entry); }
FS_CFFInfo* FS_DFont::getCFFFont(int entry) const { return FS_BaseFont::getCFFFont(entry); }
bool FS_DFont::getSVG2EmbedFont(const GlyphIDs& gids, QXMemStream& out, int entry, std::istream* source) { return FS_BaseFont::getSVG2EmbedFont(gids, out, entry, source); }
bool FS_DFont::makeWebFont(const GlyphIDs& gids, QXMemStream& out, int entry, std::istream* source) { return FS_BaseFont::makeWebFont(gids, out, entry, source); }
bool FS_DFont::makeSubsetFont(const GlyphIDs& gids, QXMemStream& out, int entry, std::istream* source) { return FS_BaseFont::makeSubsetFont(gids, out, entry, source); }
bool FS_DFont::getCIDSystemInfo(FS_CIDSystemInfo& out, int entry) const { return FS_BaseFont::getCIDSystemInfo(out, entry); }
bool FS_DFont::hasVariationSelector(int entry) const { return FS_BaseFont::hasVariationSelector(entry); }
unsigned short FS_DFont::variationSequence(int code, int selector, int entry) const { return FS_BaseFont::variationSequence(code, selector, entry); }
unsigned char FS_DFont::getFamilyClass(int entry) const { return FS_BaseFont::getFamilyClass(entry); }
unsigned char FS_DFont::getFamilySubclass(int entry) const { return FS_BaseFont::getFamilySubclass(entry); }

// clang-format on

}  // namespace QXFontService_NS
