// Opens the service and tells where its fonts come from and what went wrong.
//
//   open_service [VARIABLE]     the variable leads to a configuration; none: the system's fonts

#include <cstddef>
#include <iostream>
#include <string>

#include "qxcommon/error.h"
#include "qxcommon/uri.h"
#include "qxfontservice/ext/opening.h"
#include "qxfontservice/font_service.h"

using namespace QXFontService_NS;

static std::string utf8(const UnicodeString& text) {
  std::string bytes;
  return text.toUTF8String(bytes);
}

// [progress]
class Progress final : public ext::OpeningObserver {
 public:
  void read(const ext::OpeningProgress& progress) override { faces_ = progress.faces; }
  [[nodiscard]] std::size_t faces() const { return faces_; }

 private:
  std::size_t faces_ = 0;
};
// [progress end]

// [open]
static bool openService(const char* variable) {
  QXCommonNS::QXError error;
  if (FontServiceOpen(variable, &error) == FS_ERROR_NONE) return true;
  std::cerr << error.getErrorCode() << ": " << utf8(error.getErrorMessage()) << '\n';
  return false;
}
// [open end]

static void tellConfiguration() {
  // [configuration]
  const QXCommonNS::QXUri file = ext::openedConfiguration();
  std::cout << (file.isEmpty() ? "the system's fonts" : utf8(file.getLocalPath(false))) << '\n';
  for (const ext::OpenedFolder& folder : ext::openedFolders())
    std::cout << utf8(folder.path) << ": " << folder.files << " files\n";
  // [configuration end]
}

static void tellErrors() {
  // [errors]
  const int count = FS_GetFontError(nullptr, 0);
  for (int i = 0; i < count; ++i) {
    QXCommonNS::QXError error;
    FS_GetFontError(&error, i);
    std::cerr << error.getErrorCode() << ": " << utf8(error.getErrorMessage()) << '\n';
  }
  // [errors end]
}

int main(int count, char** arguments) {
  // [observe]
  Progress progress;
  ext::setOpeningObserver(&progress);
  const bool open = openService(count > 1 ? arguments[1] : nullptr);
  ext::setOpeningObserver(nullptr);
  // [observe end]
  if (!open) return 5;
  tellConfiguration();
  tellErrors();
  std::cout << progress.faces() << " faces\n";
  FontServiceClose();
  return 0;
}
