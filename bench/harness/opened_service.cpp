#include "harness/opened_service.h"

#include <cstdlib>
#include <fstream>

#include "qxcommon/error.h"
#include "qxfontservice/service.h"

#include "pool/registry/font_registry.h"

namespace qxbench {
namespace {

constexpr const char* kVariable = "QX_BENCH_FONT_CONFIG";

/// Once for a folder: writing a file is no part of opening the service.
void writeConfiguration(const std::string& path, const std::string& fontFolder) {
  static std::string written;
  if (written == path + fontFolder) return;
  written = path + fontFolder;
  std::ofstream file(path);
  file << "<font-config windows-registry=\"disable\"><font-folder path=\"" << fontFolder
       << "\"/></font-config>\n";
}

}  // namespace

void closeService() {
  QXFontService_NS::resetServiceForTests();
}

bool openService(const std::string& fontFolder, const std::string& scratch) {
  closeService();
  const std::string path = scratch + "/font-config.xml";
  writeConfiguration(path, fontFolder);
  setenv(kVariable, path.c_str(), 1);
  QXCommonNS::QXError error;
  return QXFontService_NS::FontServiceOpen(kVariable, &error) == QXFontService_NS::FS_ERROR_NONE;
}

}  // namespace qxbench
