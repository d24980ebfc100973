#pragma once

#include <cstdint>
#include <istream>

#include "qxcommon/export.h"
#include "qxcommon/text.h"

namespace QXCommonNS {

/// How a text becomes a `QXUri`.
enum URISTRTYPE : int {
  /// A folder path, or a folder's text with a listed name behind it, taken as it stands: no scheme
  /// test, and no separator but the platform's.
  URISTR_FOLDER = 1,
  /// A path or URI from a user, a configuration or a registry: schemes are recognised, and `\` is
  /// a separator like `/`, since configurations are shared between systems. A text that begins
  /// with `/` is a POSIX path, in which `\` and `:` are ordinary characters.
  URISTR_USER = 4
};

/// A URI or a local path, relative or absolute.
///
/// The canonical text of a local one is the plain path: `/` as separator, `.` and `..` segments and
/// doubled separators removed, no `file:` prefix and no percent encoding, so that `#`, `?` and
/// `%20` in a file name are what they look like. `file:` URIs are decoded into that form. Any other
/// URI keeps its text.
///
/// Values may be copied freely; one object is not to be changed on two threads at once.
class QX_EXPORT QXUri {
 public:
  /// What an open reveals about a resource.
  class QX_EXPORT ContentInfo {
   public:
    /// Copies `other`; null gives an empty record.
    explicit ContentInfo(const ContentInfo* other);
    ContentInfo(const ContentInfo&) = default;
    ContentInfo& operator=(const ContentInfo&) = default;
    ~ContentInfo();

    /// The media type, lower-cased and without parameters ("font/woff"); empty for local files.
    UnicodeString contentType;
  };

  /// The empty URI; its text is empty.
  QXUri();
  QXUri(const UnicodeString& text, URISTRTYPE type);  ///< Any text makes a URI.
  /// Resolves `relative` against `base`: what stands behind the last separator of `base` is
  /// dropped first, so a file as base means its folder, and a folder as base must end in a
  /// separator. An absolute `relative` (separator first, drive, or scheme) wins.
  QXUri(const QXUri& base, const UnicodeString& relative, URISTRTYPE type);
  QXUri(const QXUri&);
  QXUri& operator=(const QXUri&);
  virtual ~QXUri();

  /// Whether the URI carries a full location: a scheme, a drive, or a separator in front.
  bool isAbsolute() const;
  /// Whether this is a local path; true for relative ones and for the empty URI too.
  bool isFile() const;
  /// Whether a regular file (links followed) stands there now. False for a folder, and for
  /// anything not local.
  bool isFileExists() const;
  /// Whether this is a `data:` URI (RFC 2397).
  bool isDataScheme() const;
  bool isEmpty() const { return uriText.isEmpty(); }  ///< Whether the text is empty.

  /// The local path. For a URI that is not local: its text if `uriTextWhenNotLocal`, else empty.
  UnicodeString getLocalPath(bool uriTextWhenNotLocal) const;
  /// The folder part with its closing separator: a text that ends in a separator itself, and the
  /// empty text for a bare name.
  UnicodeString getBaseString() const;
  /// The last segment; empty behind a closing separator and for `data:` URIs. It equals the text
  /// that the URI was made from exactly when that text is a bare file name.
  UnicodeString getFileName() const;
  /// The file name from its last point on, in its own spelling: ".ttf" for "a.ttf" and for ".ttf";
  /// empty when there is no point.
  UnicodeString getExtension() const;
  /// Replaces the extension, or appends `extension` to a name without one, and gives the old one.
  /// Without a file name nothing is changed and the result is empty.
  UnicodeString setExtension(const UnicodeString& extension);
  /// The same with the text pointed to; null removes the extension.
  UnicodeString setExtension(const UnicodeString* extension);
  /// Gives the URI a closing separator where it has none, and gives its text. The empty URI stays
  /// empty, since a separator would make it the root.
  const UnicodeString& toDirectory();
  const UnicodeString& getText() const { return uriText; }  ///< The canonical full text.

  /// Opens the resource for reading: a local regular file of less than 4 GiB, or a `data:` URI in
  /// base64 or percent form. The stream can seek; the caller deletes it. Null for a folder, a
  /// pipe or device, a file that cannot be read, and any other scheme; then `info` and `text`,
  /// which may be null, are left as they were. On success they get the content type and the
  /// text of what was opened.
  std::istream* getIStream(ContentInfo* info, UnicodeString* text) const;

  /// The URI of `name` in the folder of the loaded module `module` ("QXFontService13.dll"; a
  /// module linked statically is looked up by the program that holds it). An absolute `name`
  /// stands for itself. Empty when the folder cannot be told. `reserved` is null.
  static QXUri getModuleUri(const char* module, const char* name, const char* reserved);

  /// The canonical full text.
  UnicodeString uriText;

 private:
  enum class Location : unsigned char { local, data, other };

  void takeUserText(const UnicodeString& text);
  void takeFileUri(const UnicodeString& text);
  void takeLocalPath(const UnicodeString& path);

  /// Where the file name stands in the text.
  struct NameRange {
    std::int32_t start;
    std::int32_t end;
  };
  NameRange nameRange() const;
  std::int32_t extensionStart() const;

  Location location_ = Location::local;
};

}  // namespace QXCommonNS
