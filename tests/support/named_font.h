#pragma once

#include <string>
#include <string_view>

#include "support/name_builder.h"
#include "support/sample_font.h"
#include "support/table_builders.h"

namespace qxtest {

/// The style of a sample font.
struct SampleStyle {
  unsigned weight = 400;
  bool italic = false;
  unsigned width = 5;
};

/// The bytes of the sample font under other names, in another style. The PostScript name is the
/// family, a hyphen and "Regular".
inline std::string namedFont(std::u16string_view family, SampleStyle style = {}) {
  Os2Builder os2;
  os2.usWeightClass = style.weight;
  os2.usWidthClass = style.width;
  os2.fsSelection = style.italic ? 1U : 0U;
  return sampleFont()
      .table("name", NameBuilder().latin(family).build())
      .table("OS/2", os2.build())
      .build();
}

}  // namespace qxtest
