#include "pool/tables/extra_font_pool.h"

namespace QXFontService_NS {

std::unique_ptr<FS_ExtraFontPool> FS_ExtraFontPool::sharedCopy(const FS_ExtraFontPool& other) {
  auto copy = std::make_unique<FS_ExtraFontPool>();
  for (FS_BaseFont* font : other.fonts_) copy->keepFont(font);
  copy->fileTable_ = other.fileTable_;
  copy->familyTable_ = other.familyTable_;
  copy->uriTable_ = other.uriTable_;
  return copy;
}

void FS_ExtraFontPool::addFont(const FS_FontRef& ref) {
  ref.font->addNameKeys(*this, ref);
  ref.font->release();
}

int FS_ExtraFontPool::find(const UnicodeString& uri) const {
  const auto known = uriTable_.find(uri);
  return known == uriTable_.end() ? -1 : known->second;
}

int FS_ExtraFontPool::append(FS_BaseFont* font, const UnicodeString& uri) {
  const int number = static_cast<int>(fonts_.size());
  keepFont(font);
  uriTable_[uri] = number;
  return number;
}

}  // namespace QXFontService_NS
