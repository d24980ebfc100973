#include "qxfontservice/ext/inspect.h"

#include "font/sfnt_font.h"
#include "service/boundary.h"

namespace QXFontService_NS::ext {
namespace {

/// The record of the face, or null where the kind of font has none.
const FS_TrueTypeInfo* recordOf(const FS_FontInfo& font) {
  FS_BaseFont* base = font.getFont();
  return base != nullptr ? SfntFont::recordOf(*base, font.getEntry()) : nullptr;
}

std::vector<int> languagesOf(const FS_TrueTypeInfo& record) {
  std::vector<int> languages;
  for (const auto& [language, names] : record.records().names.sets()) languages.push_back(language);
  return languages;
}

}  // namespace

std::vector<int> nameLanguages(const FS_FontInfo& font) {
  return service::atBoundary(std::vector<int>(), [&]() -> std::vector<int> {
    const FS_TrueTypeInfo* record = recordOf(font);
    return record != nullptr ? languagesOf(*record) : std::vector<int>();
  });
}

unsigned int glyphCount(const FS_FontInfo& font) {
  return service::atBoundary(0U, [&]() -> unsigned int {
    const FS_TrueTypeInfo* record = recordOf(font);
    return record != nullptr ? record->numGlyphs : 0U;
  });
}

}  // namespace QXFontService_NS::ext
