#pragma once

#include <set>

#include "qxfontservice/names.h"

#include "font/contract/font_key.h"
#include "font/contract/font_ref.h"

namespace QXFontService_NS {

/// Where fonts enter the names and styles under which they are to be found. The pool implements
/// it by an adapter, tests by a list.
class FS_FontKeySink {
 public:
  virtual void addFileName(const QXUri& uri, const FS_FontRef& ref, const FS_FontKey& key) = 0;
  virtual void addFamilyNames(const std::set<UnicodeString>& names, const FS_FontRef& ref,
                              const FS_FontKey& key) = 0;

 protected:
  ~FS_FontKeySink() = default;
};

}  // namespace QXFontService_NS
