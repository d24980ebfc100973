#include "font/open_type.h"

#include "embed/cff/cff_info.h"

namespace QXFontService_NS {

FS_OpenType::FS_OpenType(const QXUri& uri, FS_FontFolder* folder) : FS_TrueType(uri, folder) {}

FS_OpenType::~FS_OpenType() = default;

unsigned int FS_OpenType::getClassID() const {
  return kClassID;
}

bool FS_OpenType::isKindOf(unsigned int id) const {
  return id == kClassID || FS_TrueType::isKindOf(id);
}

UnicodeString FS_OpenType::getClassName() const {
  return u"FS_OpenType";
}

bool FS_OpenType::isCID() const {
  const FS_CFFInfo* cff = getCFFFont(0);
  return cff != nullptr && cff->isCID;
}

/// A font with codes of its own keeps those of page 0 for itself.
bool FS_OpenType::loadFontTables(QXError* error, int entry, std::istream* stream) {
  constexpr int kLastOwnCode = 0xFE;
  if (!FS_TrueType::loadFontTables(error, entry, stream)) return false;
  QXMutex guard(&lock_);
  if (type1CodeLimit_ == 0 && getEncodingScheme(entry) != FS_ENCODING_OTHER)
    type1CodeLimit_ = kLastOwnCode;
  return true;
}

FS_FontFileType FS_OpenType::getFontFileType(int) const {
  return isCID() ? FS_FILETYPE_OPENTYPE_CID : FS_FILETYPE_OPENTYPE;
}

bool FS_OpenType::isOpenType() const {
  return true;
}

bool FS_OpenType::isType1OrNoCID(int) const {
  return !isCID();
}

bool FS_OpenType::isTrueTypeOrCID(int) const {
  return isCID();
}

unsigned short FS_OpenType::getStringID(unsigned short cid, int) const {
  const FS_CFFInfo* cff = getCFFFont(0);
  return cff != nullptr ? cff->getCIDFromGID(cid) : static_cast<unsigned short>(0);
}

FS_EncodingScheme FS_OpenType::getEncodingScheme(int) const {
  const FS_CFFInfo* cff = getCFFFont(0);
  const bool ownCodes = cff != nullptr && !cff->encodingCodes.empty();
  return ownCodes ? FS_ENCODING_FONTSPECIFIC : FS_ENCODING_OTHER;
}

}  // namespace QXFontService_NS
