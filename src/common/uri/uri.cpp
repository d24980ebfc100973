#include "qxcommon/uri.h"

#include <unicode/uchar.h>

#include "common/uri/local_path.h"
#include "common/uri/percent.h"
#include "common/uri/scheme.h"

namespace QXCommonNS {
namespace {

const UnicodeString& noText() {
  static const UnicodeString empty;
  return empty;
}

// A path as users write it: a text that begins with `/` is a POSIX path, where `\` is a letter
// like any other.
UnicodeString withUserSeparators(const UnicodeString& path) {
  const bool isPosix = path.startsWith(uri::kSeparator) && !uri::kBackslashIsSeparator;
  return isPosix ? path : uri::withSlashes(path);
}

// "/C:/fonts" as `file:` URIs have it.
bool hasDriveBehindSeparator(const UnicodeString& path) {
  return path.startsWith(uri::kSeparator) && uri::startsWithDrive(path.tempSubString(1));
}

UnicodeString decoded(const UnicodeString& text) {
  std::string bytes;
  text.toUTF8String(bytes);
  return UnicodeString::fromUTF8(uri::decodePercent(bytes));
}

bool isThisHost(const UnicodeString& host) {
  return host.isEmpty() || host.caseCompare(u"localhost", U_FOLD_CASE_DEFAULT) == 0;
}

}  // namespace

QXUri::ContentInfo::ContentInfo(const ContentInfo* other) {
  if (other != nullptr) contentType = other->contentType;
}

QXUri::ContentInfo::~ContentInfo() = default;

QXUri::QXUri() = default;
QXUri::QXUri(const QXUri&) = default;
QXUri& QXUri::operator=(const QXUri&) = default;
QXUri::~QXUri() = default;

QXUri::QXUri(const UnicodeString& text, URISTRTYPE type) {
  if (type == URISTR_USER) {
    takeUserText(text);
  } else {
    takeLocalPath(uri::kBackslashIsSeparator ? uri::withSlashes(text) : text);
  }
}

QXUri::QXUri(const QXUri& base, const UnicodeString& relative, URISTRTYPE type)
    : QXUri(relative, type) {
  if (isAbsolute() || base.isEmpty() || base.isDataScheme()) return;
  const UnicodeString folder = base.getBaseString();
  location_ = base.location_;
  if (location_ == Location::local) {
    takeLocalPath(folder + uriText);
    return;
  }
  const std::int32_t start = uri::pathStart(folder);
  uriText =
      folder.tempSubString(0, start) + uri::canonicalPath(UnicodeString(folder, start) + uriText);
}

void QXUri::takeUserText(const UnicodeString& text) {
  if (uri::hasScheme(text, u"file")) {
    takeFileUri(text);
  } else if (uri::schemeLength(text) > 0) {
    location_ = uri::hasScheme(text, u"data") ? Location::data : Location::other;
    uriText = text;
  } else {
    takeLocalPath(withUserSeparators(text));
  }
}

void QXUri::takeFileUri(const UnicodeString& text) {
  const std::int32_t start = uri::pathStart(text);
  const std::int32_t authority = uri::schemeLength(text) + 3;  // behind "://"
  UnicodeString host;
  if (start >= authority) host = text.tempSubStringBetween(authority, start);
  UnicodeString path = decoded(text.tempSubStringBetween(start, uri::pathEnd(text)));
  if (hasDriveBehindSeparator(path)) path.remove(0, 1);
  if (isThisHost(host)) {
    takeLocalPath(withUserSeparators(path));
  } else if (uri::kBackslashIsSeparator) {
    takeLocalPath(UnicodeString(u"//") + host + withUserSeparators(path));
  } else {
    location_ = Location::other;
    uriText = text;
  }
}

void QXUri::takeLocalPath(const UnicodeString& path) {
  location_ = Location::local;
  uriText = uri::canonicalPath(path);
}

bool QXUri::isAbsolute() const {
  return location_ != Location::local || uri::isAbsolutePath(uriText);
}

bool QXUri::isFile() const {
  return location_ == Location::local;
}

bool QXUri::isDataScheme() const {
  return location_ == Location::data;
}

UnicodeString QXUri::getLocalPath(bool uriTextWhenNotLocal) const {
  return isFile() || uriTextWhenNotLocal ? uriText : UnicodeString();
}

QXUri::NameRange QXUri::nameRange() const {
  if (location_ == Location::data) return {0, 0};
  if (location_ == Location::local)
    return {uriText.lastIndexOf(uri::kSeparator) + 1, uriText.length()};
  const std::int32_t end = uri::pathEnd(uriText);
  const std::int32_t start = uri::pathStart(uriText);
  const std::int32_t separator = uriText.lastIndexOf(uri::kSeparator, start, end - start);
  return {separator < 0 ? start : separator + 1, end};
}

UnicodeString QXUri::getBaseString() const {
  UnicodeString folder(uriText, 0, nameRange().start);
  const bool isBareHost = location_ == Location::other && !folder.endsWith(uri::kSeparator) &&
                          folder.indexOf(u"://") >= 0;
  if (isBareHost) folder.append(uri::kSeparator);
  return folder;
}

UnicodeString QXUri::getFileName() const {
  const NameRange name = nameRange();
  return UnicodeString(uriText, name.start, name.end - name.start);
}

std::int32_t QXUri::extensionStart() const {
  const NameRange name = nameRange();
  const std::int32_t point = uriText.lastIndexOf(u'.', name.start, name.end - name.start);
  return point < 0 ? name.end : point;
}

UnicodeString QXUri::getExtension() const {
  const std::int32_t start = extensionStart();
  return UnicodeString(uriText, start, nameRange().end - start);
}

UnicodeString QXUri::setExtension(const UnicodeString& extension) {
  const NameRange name = nameRange();
  if (name.start == name.end) return {};
  const std::int32_t start = extensionStart();
  UnicodeString old(uriText, start, name.end - start);
  uriText.replaceBetween(start, name.end, extension);
  return old;
}

UnicodeString QXUri::setExtension(const UnicodeString* extension) {
  return setExtension(extension != nullptr ? *extension : noText());
}

const UnicodeString& QXUri::toDirectory() {
  const NameRange name = nameRange();
  if (name.start < name.end) uriText.insert(name.end, uri::kSeparator);
  return uriText;
}

}  // namespace QXCommonNS
