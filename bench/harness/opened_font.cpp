#include "harness/opened_font.h"

#include "qxcommon/uri.h"

namespace qxbench {

OpenedFont::OpenedFont(const FontSets& fonts, const std::string& name)
    : path_(fonts.file(name)),
      bytes_(contentOf(path_)),
      service_(fonts.linked("alone", path_.empty() ? Paths{} : Paths{path_}).folder,
               fonts.scratch()) {
  using QXCommonNS::QXUri;
  if (path_.empty()) return;
  info_.createFont(QXUri(icu::UnicodeString::fromUTF8(path_), QXCommonNS::URISTR_FOLDER));
}

OpenedFont::~OpenedFont() {
  if (info_.isCreatedFont()) info_.deleteFont();
}

}  // namespace qxbench
