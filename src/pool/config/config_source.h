#pragma once

#include <unicode/unistr.h>

#include "qxcommon/ptr.h"
#include "qxcommon/uri.h"
#include "qxcommon/xml_parser.h"

#include "pool/config/config_words.h"

namespace QXFontService_NS::config {

using icu::UnicodeString;
using QXCommonNS::QXUri;

enum class Event { start, end, finished };

/// The configuration file as a walk over its start and end tags.
///
/// Text, comments and declarations are passed over. A file that is damaged ends where the damage
/// begins, as if it ended there.
class ConfigSource {
 public:
  explicit ConfigSource(const QXUri& uri);

  [[nodiscard]] bool isOpen() const { return open_; }

  /// Moves to the next tag.
  Event next();

  /// The keyword number of the tag; 0 for a name that is no keyword.
  [[nodiscard]] int word() const;
  /// The name of the tag as it is spelled, known or not.
  [[nodiscard]] UnicodeString name() const;
  /// The value of an attribute; an absent one and an empty one are both the empty text.
  [[nodiscard]] UnicodeString attribute(Word name) const;

  [[nodiscard]] const QXUri& uri() const { return uri_; }
  /// The local path of the file, with which every message ends.
  [[nodiscard]] const UnicodeString& path() const { return path_; }

 private:
  QXUri uri_;
  UnicodeString path_;
  QXCommonNS::QXPtr<QXCommonNS::QXXmlParser> parser_;
  bool open_ = false;
};

}  // namespace QXFontService_NS::config
