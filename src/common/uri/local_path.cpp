#include "common/uri/local_path.h"

#include <vector>

namespace QXCommonNS::uri {
namespace {

bool isLetter(char16_t c) {
  return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

// What no `..` can go above: "/", "C:/", and on Windows the two separators of a network path.
std::int32_t rootLength(const UnicodeString& path) {
  if (startsWithDrive(path)) return 3;
  if (kBackslashIsSeparator && path.startsWith(u"//", 2)) return 2;
  return path.startsWith(kSeparator) ? 1 : 0;
}

struct Segments {
  std::vector<UnicodeString> names;
  bool rooted = false;
  bool endsAsFolder = false;

  void goUp() {
    if (!names.empty() && names.back() != UnicodeString(u"..", 2)) {
      names.pop_back();
    } else if (!rooted) {
      names.emplace_back(u"..", 2);
    }
  }

  void take(const UnicodeString& segment) {
    const bool isUp = segment == UnicodeString(u"..", 2);
    endsAsFolder = isUp || segment.isEmpty() || segment == UnicodeString(u'.');
    if (isUp) goUp();
    if (!endsAsFolder) names.push_back(segment);
  }
};

Segments segmentsOf(const UnicodeString& path, std::int32_t root) {
  Segments segments;
  segments.rooted = root > 0;
  for (std::int32_t start = root; start <= path.length();) {
    std::int32_t end = path.indexOf(kSeparator, start);
    if (end < 0) end = path.length();
    segments.take(path.tempSubStringBetween(start, end));
    start = end + 1;
  }
  return segments;
}

bool isDots(const UnicodeString& path, std::int32_t start, std::int32_t end) {
  const std::int32_t length = end - start;
  return (length == 1 || length == 2) && path.charAt(start) == u'.' && path.charAt(end - 1) == u'.';
}

/// Whether there is nothing to do, which nearly all paths of a scan show with one look.
bool isCanonical(const UnicodeString& path, std::int32_t root) {
  if (path.length() == root) return false;
  for (std::int32_t start = root; start < path.length();) {
    std::int32_t end = path.indexOf(kSeparator, start);
    if (end < 0) end = path.length();
    if (end == start || isDots(path, start, end)) return false;
    start = end + 1;
  }
  return true;
}

}  // namespace

bool startsWithDrive(const UnicodeString& path) {
  return isLetter(path.charAt(0)) && path.charAt(1) == u':' && path.charAt(2) == kSeparator;
}

bool isAbsolutePath(const UnicodeString& path) {
  return path.charAt(0) == kSeparator || startsWithDrive(path);
}

UnicodeString withSlashes(UnicodeString path) {
  path.findAndReplace(UnicodeString(u'\\'), UnicodeString(kSeparator));
  return path;
}

UnicodeString canonicalPath(const UnicodeString& path) {
  if (path.isEmpty()) return path;
  const std::int32_t root = rootLength(path);
  if (isCanonical(path, root)) return path;
  const Segments segments = segmentsOf(path, root);
  UnicodeString result(path, 0, root);
  for (std::size_t i = 0; i < segments.names.size(); ++i) {
    if (i > 0) result.append(kSeparator);
    result.append(segments.names[i]);
  }
  if (segments.endsAsFolder && !segments.names.empty()) result.append(kSeparator);
  return result.isEmpty() ? UnicodeString(u"./", 2) : result;
}

}  // namespace QXCommonNS::uri
