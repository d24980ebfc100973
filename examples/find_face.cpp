// Finds a face by a name and a style, tells why it is the one, and lists its family.
//
//   find_face NAME [WEIGHT [italic]]

#include <cstdlib>
#include <iostream>
#include <string>

#include "qxcommon/error.h"
#include "qxfontservice/ext/match.h"
#include "qxfontservice/font_service.h"

using namespace QXFontService_NS;

static std::string utf8(const UnicodeString& text) {
  std::string bytes;
  return text.toUTF8String(bytes);
}

static bool find(const UnicodeString& name, int weight, bool italic) {
  // [find]
  FS_FontInfo font;
  if (!font.createFont(name, weight, italic)) {
    const UnicodeString reason = font.getError().getErrorMessage();
    std::cerr << (reason.isEmpty() ? "no such font" : utf8(reason)) << '\n';
    return false;
  }
  int found = 0;
  bool foundItalic = false;
  font.getFontStyle(&found, &foundItalic, nullptr);
  std::cout << utf8(font.getFullFontName(QXLang::LANGID_DEFAULT)) << ", " << found
            << (foundItalic ? " italic" : "") << '\n'
            << utf8(font.getFontFileName().getLocalPath(true)) << ", face " << font.getEntry()
            << '\n';
  // [find end]
  return true;
}

static void explain(const UnicodeString& name, int weight, bool italic) {
  // [explain]
  ext::MatchReport report;
  if (!ext::explainMatch(name, weight, italic, 0, nullptr, report)) return;
  if (report.step == ext::MatchStep::filled) std::cout << "no face has this style\n";
  for (const ext::FilledSlot& slot : report.filled) {
    std::cout << slot.weight << (slot.italic ? " italic" : "") << " -> " << slot.face.weight
              << (slot.face.italic ? " italic" : "") << '\n';
  }
  // [explain end]
}

// [enumerate]
static int tellFace(FS_FontResourceType, const FS_EnumLogFontEx* font, const FS_NewTextMetricEx*,
                    void* user) {
  auto& faces = *static_cast<int*>(user);
  std::cout << "  " << utf8(font->getFullName()) << ", " << font->getWeight()
            << (font->isItalic() ? " italic" : "") << '\n';
  ++faces;
  return 0;  // anything else ends the walk
}

static int listFamily(const UnicodeString& family) {
  int faces = 0;
  FS_EnumFontFamilies(family, tellFace, &faces, nullptr, 0);
  return faces;
}
// [enumerate end]

int main(int count, char** arguments) {
  if (count < 2) return 2;
  QXCommonNS::QXError error;
  if (FontServiceOpen(nullptr, &error) != FS_ERROR_NONE) return 5;
  const UnicodeString name = UnicodeString::fromUTF8(arguments[1]);
  const int weight = count > 2 ? std::atoi(arguments[2]) : 0;
  const bool italic = count > 3;
  // The list comes first: a lookup that fills the family would show its faces more than once.
  std::cout << listFamily(name) << " faces\n";
  if (!find(name, weight, italic)) return 1;
  explain(name, weight, italic);
  return 0;
}
