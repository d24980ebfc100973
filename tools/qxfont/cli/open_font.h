#pragma once

#include <string>

#include "qxfont/cli/options.h"
#include "qxfont/cli/service.h"
#include "qxfont/cli/status.h"

namespace qxfont {

/// A font that a command has open; one that was opened by its path is released at the end.
class OpenFont {
 public:
  OpenFont() = default;
  OpenFont(const fs::FS_FontInfo& info, bool owned) : info_(info), owned_(owned) {}
  ~OpenFont();
  OpenFont(OpenFont&& other) noexcept;
  OpenFont& operator=(OpenFont&& other) noexcept;
  OpenFont(const OpenFont&) = delete;
  OpenFont& operator=(const OpenFont&) = delete;

  const fs::FS_FontInfo* operator->() const { return &info_; }
  const fs::FS_FontInfo& operator*() const { return info_; }

 private:
  fs::FS_FontInfo info_;
  bool owned_ = false;
};

/// Looks at the options alone, before the service is opened.
/// @throws ToolError `wrongCall`.
void checkFontOptions(const FontOptions& options);

/// Opens the face that the options name.
/// @throws ToolError `noMatch` for a name without a face, `badFont` for one that cannot be read.
OpenFont openFont(Service& service, const FontOptions& options);

/// The error of a name that no font has: the nearest names, and how many faces there are.
ToolError noSuchFont(Service& service, const std::string& name);

}  // namespace qxfont
