#pragma once

#include <string>
#include <string_view>

#include "support/sample_font.h"

namespace qxfuzz {

/// A sound small font whose table `tag` has these bytes: checksums and directories do not stand in
/// the way of what is to be fed.
inline std::string fontWithTable(std::string_view tag, std::string_view bytes) {
  return qxtest::sampleFont().table(tag, std::string(bytes)).build();
}

}  // namespace qxfuzz
