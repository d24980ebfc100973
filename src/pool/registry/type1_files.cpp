#include "pool/registry/type1_files.h"

namespace QXFontService_NS {

void Type1Files::note(const QXUri& file) {
  const Type1Role role = type1RoleOf(file.getExtension());
  if (role == Type1Role::none) return;
  if (known_.insert(file.getText()).second) files_.push_back({file, role});
}

std::vector<QXUri> Type1Files::unpaired() const {
  std::set<UnicodeString> taken;
  std::set<UnicodeString> alone;
  for (const File& file : files_) {
    if (file.role != Type1Role::metrics) continue;
    const Type1Partner partner = type1PartnerOf(file.uri);
    if (partner.type == FS_FILETYPE_UNKNOWN) {
      alone.insert(file.uri.getText());
    } else {
      taken.insert(partner.file.getText());
    }
  }
  std::vector<QXUri> result;
  for (const File& file : files_) {
    const bool paired = file.role == Type1Role::metrics ? alone.count(file.uri.getText()) == 0
                                                        : taken.count(file.uri.getText()) != 0;
    if (!paired) result.push_back(file.uri);
  }
  return result;
}

}  // namespace QXFontService_NS
