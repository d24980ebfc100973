#include "harness/listed_faces.h"

#include "qxfontservice/font_service.h"

namespace qxbench {
namespace {

using namespace QXFontService_NS;

int take(FS_FontResourceType, const FS_EnumLogFontEx* font, const FS_NewTextMetricEx*, void* user) {
  std::string family;
  font->getFaceName().toUTF8String(family);
  static_cast<std::vector<ListedFace>*>(user)->push_back(
      {family, font->getWeight(), font->isItalic()});
  return 0;
}

}  // namespace

std::vector<ListedFace> listedFaces() {
  std::vector<ListedFace> faces;
  FS_EnumFontFamilies(UnicodeString(), take, &faces, nullptr, 0);
  return faces;
}

}  // namespace qxbench
