#pragma once

#include <optional>
#include <string>

#include "qxfontservice/font_service.h"

#include "qxfont/cli/document_font.h"
#include "qxfont/cli/options.h"
#include "qxfont/cli/temporary_folder.h"

namespace qxfont {

namespace fs = QXFontService_NS;

/// The opened font service, with the fonts that the command line asked for.
class Service {
 public:
  /// Whether what opening collected is told in one line on standard error.
  enum class Warnings { told, untold };

  /// Opens the service, with a progress bar on a terminal.
  /// @throws ToolError when it cannot be opened, or a named folder or font is no good.
  explicit Service(const SourceOptions& options, Warnings warnings = Warnings::told);

  /// Opens it for a command about one font. A path needs none of the system's fonts: they are not
  /// looked for then, unless an option or the environment says where fonts come from.
  /// @throws ToolError as the other.
  Service(const SourceOptions& options, const FontOptions& font);

  /// The document's fonts, for lookups.
  [[nodiscard]] fs::FS_ExtraFonts* documentFonts() const { return manager_.getExtraFonts(); }
  [[nodiscard]] fs::FS_ExtraFontManager& documentManager() { return manager_; }

  /// How many faces the service lists.
  [[nodiscard]] int faceCount();

 private:
  enum class SystemFonts { taken, leftOut };

  Service(const SourceOptions& options, Warnings warnings, SystemFonts systemFonts);
  void open(const SourceOptions& options, SystemFonts systemFonts);
  static void openConfiguration(const std::string& file);
  void openOnly(const std::vector<std::string>& folders);
  void openWithoutFonts();
  void openFolders(const std::vector<std::string>& folders);
  static void openWith(const char* variable);
  static void addFolder(const std::string& folder);
  void addDocument(const DocumentFont& font);
  static void tellWarnings();

  std::optional<TemporaryFolder> temporary_;
  fs::FS_ExtraFontManager manager_;
};

/// @throws ToolError `wrongCall` unless this is a folder.
void requireFolder(const std::string& folder);

}  // namespace qxfont
