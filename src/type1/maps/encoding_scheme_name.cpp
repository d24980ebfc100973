#include "type1/maps/encoding_scheme_name.h"

#include <array>
#include <utility>

namespace QXFontService_NS::type1 {

FS_EncodingScheme encodingSchemeOf(std::string_view name) {
  static constexpr std::array<std::pair<std::string_view, int>, 4> kSchemes = {
      {{"WinAnsiEncoding", 2},
       {"MacRomanEncoding", 3},
       {"MacExpertEncoding", 4},
       {"FontSpecific", 5}}};
  for (const auto& [known, scheme] : kSchemes)
    if (known == name) return FS_EncodingScheme(scheme);
  return FS_EncodingScheme(1);
}

}  // namespace QXFontService_NS::type1
