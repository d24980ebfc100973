#include "qxfont/cli/opening_progress.h"

#include <fmt/format.h>

#include "qxfont/cli/text.h"

namespace qxfont {

namespace ext = QXFontService_NS::ext;

OpeningProgressBar::OpeningProgressBar() : progress_("opening") {
  ext::setOpeningObserver(this);
}

OpeningProgressBar::~OpeningProgressBar() {
  ext::setOpeningObserver(nullptr);
}

void OpeningProgressBar::read(const ext::OpeningProgress& progress) {
  if (progress_.isDue()) progress_.draw(openingLine(progress));
}

std::string openingLine(const ext::OpeningProgress& progress) {
  return fmt::format("opening {} files, {} faces  {}", progress.files, progress.faces,
                     shown(progress.folder));
}

}  // namespace qxfont
