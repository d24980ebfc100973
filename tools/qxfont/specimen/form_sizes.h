#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "qxfont/embed/form.h"
#include "qxfont/specimen/characters.h"

namespace qxfont {

/// How many bytes a form of a font takes.
struct FormSize {
  const Form* form = nullptr;
  std::optional<std::size_t> sample;  ///< with a sample text; nullopt: it cannot be written
  std::optional<std::size_t> all;     ///< with all characters of the font
};

/// Writes each form that a font has, in the order of the table of forms, and counts.
/// @param sample the characters of the sample text.
std::vector<FormSize> formSizes(const QXFontService_NS::FS_FontInfo& font,
                                const std::vector<int>& sample, const std::vector<int>& all);

}  // namespace qxfont
