#pragma once

#include <span>
#include <string_view>

namespace QXFontService_NS::errors {

/// A code with its text.
struct ErrorText {
  int code;
  std::u16string_view text;
};

/// Texts of the configuration's errors, by code; {0} to {3} are the arguments of `FS_ConfigError`.
/// The text of FS_ERROR_SERVICE stands apart: it serves all codes without a text of their own.
std::span<const ErrorText> configErrorTexts();
std::u16string_view serviceErrorText();

/// Texts of the errors of font files, by code, without the closing point or detail.
std::span<const ErrorText> fontErrorTexts();
std::u16string_view unknownFontErrorText();

/// The text of a code in a table; empty when the table does not have it.
std::u16string_view findErrorText(std::span<const ErrorText> table, int code);

}  // namespace QXFontService_NS::errors
