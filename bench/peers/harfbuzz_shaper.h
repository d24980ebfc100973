#pragma once

#include <unicode/unistr.h>

#include <vector>

#include "peers/harfbuzz_font.h"

namespace qxbench {

/// HarfBuzz with the given features on and all others that it would choose itself off.
class HarfBuzzShaper {
 public:
  HarfBuzzShaper(const std::string& font, hb_script_t script, const std::vector<unsigned int>& on);

  /// Shapes a text; the buffer holds its glyphs in the order in which they are drawn.
  hb_buffer_t* shape(const icu::UnicodeString& text);

 private:
  HarfBuzzFont font_;
  hb_script_t script_;
  std::vector<hb_feature_t> features_;
  HarfBuzz<hb_buffer_t> buffer_;
};

}  // namespace qxbench
