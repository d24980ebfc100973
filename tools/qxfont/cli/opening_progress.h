#pragma once

#include <string>

#include "qxfontservice/ext/opening.h"

#include "qxfont/cli/progress.h"

namespace qxfont {

/// Shows on a terminal how far the opening of the service is, as long as this stands.
class OpeningProgressBar final : public QXFontService_NS::ext::OpeningObserver {
 public:
  OpeningProgressBar();
  ~OpeningProgressBar();
  OpeningProgressBar(const OpeningProgressBar&) = delete;
  OpeningProgressBar& operator=(const OpeningProgressBar&) = delete;

  void read(const QXFontService_NS::ext::OpeningProgress& progress) override;

 private:
  Progress progress_;
};

/// The line that is drawn: "opening 120 files, 260 faces  /usr/share/fonts/".
std::string openingLine(const QXFontService_NS::ext::OpeningProgress& progress);

}  // namespace qxfont
