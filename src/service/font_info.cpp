#include "qxfontservice/font_info.h"

#include "font/contract/base_font.h"
#include "font/contract/font_file_options.h"
#include "service/boundary.h"

// Kind, file and style of a handle. Its other members stand, by what they ask, in the files
// beside this one.

namespace QXFontService_NS {

using service::askFont;

namespace {

using Font = FS_BaseFont;

template <class Value>
void tell(Value* out, Value value) {
  if (out != nullptr) *out = value;
}

}  // namespace

void FS_FontInfo::deleteFont() {
  if (font_ != nullptr) font_->release();
  font_ = nullptr;
}

bool FS_FontInfo::isType1Font() const {
  return askFont<&Font::isType1Font>(font_, false);
}
bool FS_FontInfo::isTrueTypeFont() const {
  return askFont<&Font::isTrueTypeFont>(font_, false);
}
bool FS_FontInfo::isType1OrNoCID() const {
  return askFont<&Font::isType1OrNoCID>(font_, false, entry_);
}
bool FS_FontInfo::isTrueTypeOrCID() const {
  return askFont<&Font::isTrueTypeOrCID>(font_, false, entry_);
}
bool FS_FontInfo::isExtraFont(int* weight, bool* italic) const {
  return askFont<&Font::isExtraFont>(font_, false, weight, italic, entry_);
}
FS_FontFileType FS_FontInfo::getFontFileType() const {
  return askFont<&Font::getFontFileType>(font_, FS_FILETYPE_UNKNOWN, entry_);
}
FS_FontFileType FS_FontInfo::getFontFileType2() const {
  return askFont<&Font::getFontFileType2>(font_, FS_FILETYPE_UNKNOWN, entry_);
}
QXUri FS_FontInfo::getFontFileName() const {
  return font_ != nullptr ? font_->fileUri() : QXUri();
}
QXUri FS_FontInfo::getFontFileName2() const {
  return font_ != nullptr ? font_->getFontFileName2() : QXUri();
}
FS_BaseFont* FS_FontInfo::getExtraBaseFont() const {
  return askFont<&Font::getExtraBaseFont>(font_, nullptr);
}

void FS_FontInfo::getFontStyle(int* weight, bool* italic, int* stretch) const {
  tell(weight, askFont<&Font::getFontWeight>(font_, 0, entry_));
  tell(italic, askFont<&Font::isItalicFont>(font_, false, entry_));
  tell(stretch, askFont<&Font::getFontStretch>(font_, 0, entry_));
}

void FS_FontInfo::getFontStyle2(int* weight, bool* italic, int* stretch) const {
  tell(weight, askFont<&Font::getFontWeight2>(font_, 0, entry_));
  tell(italic, askFont<&Font::isItalicFont2>(font_, false, entry_));
  tell(stretch, askFont<&Font::getFontStretch2>(font_, 0, entry_));
}

float FS_FontInfo::getBaselineAdjust() const {
  const FS_FontFileOptions* options = font_ != nullptr ? font_->fontEntry() : nullptr;
  return options != nullptr ? options->baselineAdjust : 0.0F;
}

float FS_FontInfo::getFontSizeAdjust() const {
  const FS_FontFileOptions* options = font_ != nullptr ? font_->fontEntry() : nullptr;
  return options != nullptr ? options->fontSizeAdjust : 1.0F;
}

}  // namespace QXFontService_NS
