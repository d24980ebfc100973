#include "qxfont/cli/file_type_name.h"

#include <array>
#include <cstddef>

namespace qxfont {

std::string fileTypeName(int type) {
  constexpr std::array kNames = {"unknown",
                                 "Type 1 (PFA)",
                                 "Type 1 (PFB)",
                                 "Type 1 (AFM)",
                                 "Type 1 (PFM)",
                                 "TrueType",
                                 "TrueType collection",
                                 "OpenType (CFF)",
                                 "OpenType (CFF, CID)",
                                 "Macintosh resource",
                                 "WOFF"};
  const auto index = static_cast<std::size_t>(type);
  return kNames[index < kNames.size() ? index : 0];
}

}  // namespace qxfont
