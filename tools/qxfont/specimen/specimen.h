#pragma once

#include <set>
#include <vector>

#include "qxfont/cli/options.h"
#include "qxfont/cli/service.h"
#include "qxfont/document/document_writer.h"
#include "qxfont/typeset/font_set.h"
#include "qxfont/typeset/page.h"
#include "qxfont/typeset/page_size.h"

namespace qxfont {

/// What a sheet of fonts is made for.
struct SpecimenRequest {
  std::vector<FontOptions> asked;
  PageSize page;
  DocumentKind kind = DocumentKind::pdf;
  bool allowRestricted = false;
};

/// A sheet that is set.
struct Specimen {
  std::vector<Page> pages;
  std::set<int> missing;  ///< characters of labels that no font has
};

/// Sets a sheet that shows fonts one behind the other, each on pages of its own.
/// @param fonts receives the faces that the pages use.
/// @throws ToolError as `FontSet::faceOf`, and `notAllowed`.
Specimen setSpecimen(const SpecimenRequest& request, Service& service, FontSet& fonts);

}  // namespace qxfont
