#pragma once

#include "embed/cff_subset_source.h"
#include "embed/subset_source.h"

namespace QXFontService_NS {

/// What the writers of fonts need to know of one face, for the time of one operation.
struct WritingSource {
  embed::SubsetSource sfnt;
  embed::CffSubsetSource cff;  ///< without a table where the face has none
};

}  // namespace QXFontService_NS
