#include "service/errors/errors_data.h"

#include <algorithm>

#include "qxfontservice/error_codes.h"

namespace QXFontService_NS::errors {
namespace {

// Hosts show and compare these texts: they are part of the interface, letter for letter.
// FS_ERROR_UNKNOWN_ATTRIBUTE passes over {1} on purpose.
constexpr ErrorText kConfigErrors[] = {
    {FS_ERROR_NOT_SPECIFIED, u"{0} is not specified."},
    {FS_ERROR_CONFIG_NOT_FOUND, u"FontConfig file is not found: {0}"},
    {FS_ERROR_NO_FONT_FOLDER, u"No <font-folder> in {0}"},
    {FS_ERROR_UNEXPECTED_START_TAG, u"Unexpected start tag: <{0}> in {1}"},
    {FS_ERROR_UNEXPECTED_END_TAG, u"Unexpected end tag: </{0}> in {1}"},
    {FS_ERROR_INVALID_EXTENSION, u"Invalid font file extension: <{0} {1}=\"{2}\"> in {3}"},
    {FS_ERROR_UNKNOWN_ATTRIBUTE, u"Unknown attribute: <{0} {2}> in {3}"},
    {FS_ERROR_INVALID_VALUE, u"Invalid value: <{0} {1}=\"{2}\"> in {3}"},
    {FS_ERROR_EMPTY_VALUE, u"Empty value: <{0} {1}> in {2}"},
    {FS_ERROR_NO_FILE_PATH, u"No-file path is not allowed: <{0} {1}=\"{2}\"> in {3}"},
    {FS_ERROR_RELATIVE_PATH, u"Relative path is not allowed: <{0} {1}=\"{2}\"> in {3}"},
    {FS_ERROR_ALREADY_REGISTERED, u"Already registered value: <{0} {1}=\"{2}\"> in {3}"},
    {FS_ERROR_NOT_BASE_FILE_NAME, u"Font file must be base file name: <{0} {1}=\"{2}\"> in {3}"},
    {FS_ERROR_NOT_INTEGER, u"Not an integer value: <{0} {1}=\"{2}\"> in {3}"},
};

constexpr ErrorText kFontErrors[] = {
    {FS_ERROR_FONT_READ, u"Font read error"},
    {FS_ERROR_GLYPHLIST_OPEN, u"Glyph-list open error"},
    {FS_ERROR_GLYPHLIST_READ, u"Glyph-list read error"},
    {FS_ERROR_PRINTER_FONT, u"Cannot read printer font"},
    {FS_ERROR_FONT_INFORMATION, u"Cannot read font information"},
    {FS_ERROR_FONT_FILE, u"Font file error"},
    {FS_ERROR_FONT_FILE2, u"Font file error"},
    {FS_ERROR_FONTFACE_REGISTERED,
     u"Already registered font-face font with different font-weight/style"},
    {FS_ERROR_FONTFACE_OPEN, u"Cannot open font-face font"},
    {FS_ERROR_FONTFACE_CREATE, u"Cannot create font-face font"},
    {FS_ERROR_FONTFACE_INFORMATION, u"Cannot read font-face font information"},
    {FS_ERROR_UNSUPPORTED, u"Unsupported font"},
    {FS_ERROR_FONTFACE_UNSUPPORTED, u"Unsupported font-face font"},
    {FS_ERROR_FONTFACE_UNEMBEDDABLE, u"Unembeddable font-face font"},
};

constexpr std::u16string_view kServiceError = u"FontServiceModule error: {0}";
constexpr std::u16string_view kUnknownFontError = u"FontService unknown error";

}  // namespace

std::span<const ErrorText> configErrorTexts() {
  return kConfigErrors;
}
std::u16string_view serviceErrorText() {
  return kServiceError;
}
std::span<const ErrorText> fontErrorTexts() {
  return kFontErrors;
}
std::u16string_view unknownFontErrorText() {
  return kUnknownFontError;
}

std::u16string_view findErrorText(std::span<const ErrorText> table, int code) {
  const auto row = std::find_if(table.begin(), table.end(),
                                [code](const ErrorText& each) { return each.code == code; });
  return row == table.end() ? std::u16string_view() : row->text;
}

}  // namespace QXFontService_NS::errors
