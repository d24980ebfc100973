#include "font/true_type.h"

namespace QXFontService_NS {

FS_TrueType::FS_TrueType(const QXUri& uri, FS_FontFolder* folder)
    : SfntFont(uri, folder), info_(std::make_unique<FS_TrueTypeInfo>()) {}

FS_TrueType::~FS_TrueType() = default;

unsigned int FS_TrueType::getClassID() const {
  return kClassID;
}

bool FS_TrueType::isKindOf(unsigned int id) const {
  return id == kClassID || SfntFont::isKindOf(id);
}

UnicodeString FS_TrueType::getClassName() const {
  return u"FS_TrueType";
}

FS_TrueTypeInfo* FS_TrueType::record(int) const {
  return info_.get();
}

FS_FontFileType FS_TrueType::getFontFileType(int) const {
  return FS_FILETYPE_TRUETYPE;
}

bool FS_TrueType::readFont(QXError* error, std::istream* stream) {
  return info_->readSfnt(error, stream, this);
}

void FS_TrueType::setPostScriptName(const UnicodeString& name) {
  info_->setPostScriptName(name);
}

float FS_TrueType::getTypoDescender(int entry) const {
  return getTypoAscender(entry);
}

void FS_TrueType::setEudcFlag() {
  info_->setEudcFlag();
}

bool FS_TrueType::loadGlyph(unsigned int, int) {
  return false;
}

}  // namespace QXFontService_NS
