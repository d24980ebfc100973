#include "common/platform/windows_path.h"

#include <gtest/gtest.h>

namespace QXCommonNS {
namespace {

TEST(WindowsPath, ItsFolderHasSlashesAndAClosingOne) {
  const struct {
    const char* path;
    const char* folder;
  } rows[] = {
      {"C:\\Program Files\\Host\\QXFontService13.dll", "C:/Program Files/Host/"},
      {"C:\\a.dll", "C:/"},
      {"\\\\server\\share\\a.dll", "//server/share/"},
      {"C:/mixed\\sub/a.dll", "C:/mixed/sub/"},
      {"a.dll", ""},
      {"", ""},
  };
  for (const auto& row : rows) EXPECT_EQ(folderOfWindowsPath(row.path), row.folder) << row.path;
}

}  // namespace
}  // namespace QXCommonNS
