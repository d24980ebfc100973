#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "qxfontservice/ext/numbering.h"
#include "qxfontservice/font_info.h"

#include "qxfont/embed/type1_page.h"

namespace qxfont {

/// What writing a form gave.
struct FormResult {
  std::string bytes;
  std::map<unsigned short, std::string> glyphFiles;  ///< outlines by glyph, for `ps-glyphs`
  std::vector<unsigned short> leftOut;               ///< blank glyphs that the form does not need
  std::vector<Type1Page> pages;                      ///< of a Type 1 font; `bytes` is the first
};

/// The bytes of all its files.
std::size_t sizeOf(const FormResult& result);

/// Writes a form of a font; false when the font cannot.
/// @param gids glyph ids; of a form by characters, their pages and codes.
using FormWriter = bool (*)(const QXFontService_NS::FS_FontInfo& font,
                            const std::vector<unsigned short>& gids, FormResult& out);

/// One way to embed a font: a row of the table of forms.
struct Form {
  const char* name;
  const char* what;  ///< for the help
  /// Whether this kind of font has the form.
  bool (*serves)(const QXFontService_NS::FS_FontInfo& font);
  FormWriter write;
  /// How it numbers the glyphs.
  QXFontService_NS::ext::NumberedForm numbers = QXFontService_NS::ext::NumberedForm::subsetFont;
  bool whole = false;                    ///< The whole font, whatever glyphs are asked for.
  bool folder = false;                   ///< A folder of files.
  FormWriter writeConforming = nullptr;  ///< Written so, unless the specified bytes are asked for.
  bool notOfSuitcases = false;           ///< Faces of resource forks have no specified bytes.
};

/// Whether a font has a form, byte for byte as specified or as it is written by default.
bool hasForm(const QXFontService_NS::FS_FontInfo& font, const Form& form, bool asSpecified);

/// Writes it in that way.
bool writeForm(const QXFontService_NS::FS_FontInfo& font, const Form& form, bool asSpecified,
               const std::vector<unsigned short>& gids, FormResult& out);

/// All forms, in the order of the help.
const std::vector<Form>& forms();

/// The names of all forms, or of those that a font has, with commas.
std::string formNames();
std::string formNames(const QXFontService_NS::FS_FontInfo& font, bool asSpecified);

/// The form of a name.
/// @throws ToolError `wrongCall` for an unknown one.
const Form& formOf(const std::string& name);

}  // namespace qxfont
