#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>

#include "qxcommon/uri.h"

#include "common/platform/platform.h"
#include "common/uri/data_uri.h"
#include "common/uri/local_path.h"

// The operations of a URI that look at the outside world.
namespace QXCommonNS {
namespace {

struct OpenedResource {
  std::unique_ptr<std::istream> stream;
  UnicodeString contentType;
};

std::string utf8Of(const UnicodeString& text) {
  std::string bytes;
  text.toUTF8String(bytes);
  return bytes;
}

OpenedResource openData(const UnicodeString& text) {
  std::optional<uri::DataContent> content = uri::readDataUri(utf8Of(text));
  if (!content) return {};
  return {std::make_unique<std::istringstream>(std::move(content->bytes)),
          UnicodeString::fromUTF8(content->mediaType)};
}

std::string_view withoutExtension(std::string_view module) {
  return module.substr(0, module.rfind('.'));
}

}  // namespace

bool QXUri::isFileExists() const {
  return isFile() && platform().fileKind(utf8Of(uriText)) == FileKind::regular;
}

std::istream* QXUri::getIStream(ContentInfo* info, UnicodeString* text) const {
  OpenedResource resource;
  if (isDataScheme()) resource = openData(uriText);
  if (isFile()) resource.stream = platform().openFile(utf8Of(uriText));
  if (!resource.stream) return nullptr;
  if (info != nullptr) info->contentType = resource.contentType;
  if (text != nullptr) *text = uriText;
  return resource.stream.release();
}

QXUri QXUri::getModuleUri(const char* module, const char* name, const char*) {
  if (module == nullptr || name == nullptr) return {};
  const UnicodeString nameText = UnicodeString::fromUTF8(name);
  QXUri named(nameText, URISTR_USER);
  if (named.isAbsolute()) return named;
  const std::string folderPath = platform().modulePath(withoutExtension(module));
  if (folderPath.empty()) return {};
  QXUri folder(UnicodeString::fromUTF8(folderPath), URISTR_FOLDER);
  folder.toDirectory();
  return QXUri(folder, nameText, URISTR_USER);
}

}  // namespace QXCommonNS
