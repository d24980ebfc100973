#include "qxfont/embed/type1_names.h"

#include <fmt/format.h>
#include <unicode/uchar.h>

#include <vector>

#include "qxfontservice/ext/numbering.h"

#include "qxfont/cli/status.h"
#include "qxfont/cli/text.h"
#include "qxfont/embed/pdf_name.h"

namespace qxfont {
namespace {

/// The characters under which codes may have been asked for: those of the text, and what stands in
/// their place where it runs from right to left.
std::vector<int> charactersOf(const CodeTexts& texts) {
  std::vector<int> characters;
  for (const auto& [gid, text] : texts) {
    if (text.isEmpty()) continue;
    characters.push_back(text.char32At(0));
    const int mirrored = u_charMirror(text.char32At(0));
    if (mirrored != characters.back()) characters.push_back(mirrored);
  }
  return characters;
}

}  // namespace

std::map<unsigned char, std::string> namesOnCodePage(const QXFontService_NS::FS_FontInfo& font,
                                                     const CodeTexts& texts) {
  std::map<unsigned char, std::string> names;
  for (const auto& numbered : QXFontService_NS::ext::numberCharacters(font, charactersOf(texts))) {
    if (texts.count(numbered.code) == 0 || numbered.name.empty()) continue;
    if (pdfName(numbered.name) != numbered.name) {
      throw ToolError(Status::badFont, fmt::format("{}: no document can ask for the glyph '{}'",
                                                   utf8(font.getFontFileName().getLocalPath(true)),
                                                   shown(numbered.name)));
    }
    names.emplace(static_cast<unsigned char>(numbered.code & 0xFF), numbered.name);
  }
  return names;
}

}  // namespace qxfont
