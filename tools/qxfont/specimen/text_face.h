#pragma once

#include <cstddef>
#include <optional>

#include "qxfont/cli/service.h"
#include "qxfont/document/document_writer.h"
#include "qxfont/specimen/characters.h"
#include "qxfont/typeset/font_set.h"

namespace qxfont {

/// Finds a face for labels among the service's fonts: one with the letters of English that may be
/// embedded in a document of a kind. Families that people read texts in come first, then the others
/// by their names; not all are tried where there are many.
/// @return its number in `fonts`; nullopt for none.
std::optional<std::size_t> findTextFace(Service& service, FontSet& fonts, DocumentKind kind);

/// Whether labels can be set in a face: it has the letters, and they look like letters.
bool canSetLabels(const fs::FS_FontInfo& font, const Characters& characters);

}  // namespace qxfont
