#pragma once

#include <hb-subset.h>

#include <string>
#include <vector>

#include "peers/harfbuzz_font.h"

namespace qxbench {

/// The subset with ids kept that does what embedding for PDF does: outlines of the glyphs asked
/// for, layout, character map and names dropped, the metrics tables passed on as they are.
/// Empty where it fails.
HarfBuzz<hb_blob_t> subsetWithHarfBuzz(hb_blob_t* font, const std::vector<unsigned short>& glyphs);

}  // namespace qxbench
