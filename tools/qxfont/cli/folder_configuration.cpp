#include "qxfont/cli/folder_configuration.h"

#include <set>

#include "qxfont/cli/paths.h"

namespace qxfont {
namespace {

std::string xmlEscaped(const std::string& text) {
  std::string out;
  for (const char c : text) {
    switch (c) {
      case '&':
        out += "&amp;";
        break;
      case '<':
        out += "&lt;";
        break;
      case '"':
        out += "&quot;";
        break;
      default:
        out += c;
    }
  }
  return out;
}

}  // namespace

std::string folderConfiguration(const std::vector<std::string>& folders) {
  std::string xml = "<font-config windows-registry=\"disable\">\n";
  std::set<std::string> known;
  for (const std::string& folder : folders) {
    const std::string path = absolutePath(folder);
    if (!known.insert(path).second) continue;
    xml += "  <font-folder path=\"" + xmlEscaped(path) + "\" recursive=\"yes\"/>\n";
  }
  return xml + "</font-config>\n";
}

}  // namespace qxfont
