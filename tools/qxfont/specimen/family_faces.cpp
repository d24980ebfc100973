#include "qxfont/specimen/family_faces.h"

#include <algorithm>
#include <tuple>

#include "qxfont/cli/status.h"
#include "qxfont/cli/text.h"
#include "qxfont/specimen/section.h"

namespace qxfont {
namespace {

/// A face as the service lists it.
struct ListedFace {
  icu::UnicodeString family;
  std::string fullName;
  int weight = 0;
  bool italic = false;
};

using Listed = std::vector<ListedFace>;

constexpr std::size_t kMostListed = 100;  // each is opened

int collectFace(fs::FS_FontResourceType, const fs::FS_EnumLogFontEx* font,
                const fs::FS_NewTextMetricEx*, void* listed) {
  static_cast<Listed*>(listed)->push_back(
      {font->getFaceName(), utf8(font->getFullName()), font->getWeight(), font->isItalic()});
  return 0;
}

/// The family of all weights, where a font tells one beside that of its four styles.
icu::UnicodeString familyOf(const fs::FS_FontInfo& font) {
  const icu::UnicodeString preferred = font.getPreferredFamily(fs::QXLang::LANGID_DEFAULT);
  return preferred.isEmpty() ? familyName(font) : preferred;
}

/// The faces that may be of a family: those under its name, and under names that begin with it,
/// such as "Lato Light".
Listed listFaces(Service& service, const icu::UnicodeString& family,
                 const icu::UnicodeString& ownName) {
  Listed all;
  fs::FS_EnumFontFamilies(icu::UnicodeString(), collectFace, &all, &service.documentManager(), 0);
  Listed listed;
  for (const ListedFace& face : all) {
    const bool isNear = face.family == ownName || face.family.startsWith(family);
    if (isNear && listed.size() < kMostListed) listed.push_back(face);
  }
  return listed;
}

/// The face by its full name, which tells apart what has the same weight; by its family where the
/// name leads to none or, as one that several fonts have, to another family.
std::vector<FontOptions> requestsFor(const ListedFace& listed) {
  std::vector<FontOptions> requests;
  for (const std::string& name : {listed.fullName, utf8(listed.family)}) {
    if (name.empty()) continue;
    FontOptions options;
    options.font = name;
    options.weight = listed.weight;
    options.italic = listed.italic;
    requests.push_back(options);
  }
  return requests;
}

/// A face that cannot be opened or set is no reason to show no sheet of another one.
bool open(const FontOptions& request, const icu::UnicodeString& family, FontSet& fonts,
          std::size_t& face) {
  try {
    face = fonts.faceOf(request);
  } catch (const ToolError&) {
    return false;
  }
  return fs::FS_FontInfo::isSameFontName(familyOf(fonts.font(face)), family);
}

auto orderOf(const fs::FS_FontInfo& font) {
  int weight = 0;
  bool italic = false;
  int stretch = 0;
  font.getFontStyle(&weight, &italic, &stretch);
  return std::make_tuple(stretch, weight, italic);
}

}  // namespace

std::vector<std::size_t> familyFaces(Service& service, FontSet& fonts, std::size_t face) {
  const icu::UnicodeString family = familyOf(fonts.font(face));
  if (family.isEmpty()) return {face};
  std::vector<std::size_t> faces;
  for (const ListedFace& one : listFaces(service, family, familyName(fonts.font(face)))) {
    for (const FontOptions& request : requestsFor(one)) {
      std::size_t found = 0;
      if (!open(request, family, fonts, found)) continue;
      if (std::find(faces.begin(), faces.end(), found) == faces.end()) faces.push_back(found);
      break;
    }
  }
  if (std::find(faces.begin(), faces.end(), face) == faces.end()) return {face};
  std::stable_sort(faces.begin(), faces.end(), [&](std::size_t a, std::size_t b) {
    return orderOf(fonts.font(a)) < orderOf(fonts.font(b));
  });
  return faces;
}

}  // namespace qxfont
