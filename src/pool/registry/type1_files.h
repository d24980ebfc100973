#pragma once

#include <set>
#include <vector>

#include "qxcommon/uri.h"

#include "font/contract/type1_partner.h"

namespace QXFontService_NS {

/// The Type 1 files that scans and font lists met, for telling those that stand alone.
class Type1Files {
 public:
  /// Keeps a file that by its name belongs to a Type 1 font; others are passed over.
  void note(const QXUri& file);

  /// The metric files without a program and the programs that no noted metric file takes, in the
  /// order in which they were noted.
  [[nodiscard]] std::vector<QXUri> unpaired() const;

 private:
  struct File {
    QXUri uri;
    Type1Role role;
  };
  std::vector<File> files_;
  std::set<UnicodeString> known_;
};

}  // namespace QXFontService_NS
