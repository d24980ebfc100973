#pragma once

#include <string>

#include "qxfontservice/font_info.h"

#include "harness/font_sets.h"
#include "harness/opened_service.h"

namespace qxbench {

/// A handle on a font file, and its bytes for the peers. The service is opened over a folder with
/// that file alone.
class OpenedFont {
 public:
  OpenedFont(const FontSets& fonts, const std::string& name);
  OpenedFont(const OpenedFont&) = delete;
  OpenedFont& operator=(const OpenedFont&) = delete;
  ~OpenedFont();

  /// Whether the file is there and opens.
  explicit operator bool() const { return info_.isCreatedFont(); }
  [[nodiscard]] const QXFontService_NS::FS_FontInfo& info() const { return info_; }
  [[nodiscard]] const std::string& path() const { return path_; }
  [[nodiscard]] const std::string& bytes() const { return bytes_; }

 private:
  std::string path_;
  std::string bytes_;
  OpenedService service_;
  QXFontService_NS::FS_FontInfo info_;
};

}  // namespace qxbench
