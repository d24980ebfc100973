#pragma once

#include <memory>
#include <span>
#include <vector>

#include "layout/table/layout_tables.h"

namespace QXFontService_NS {

/// A feature (OpenType Feature table); its parameters are ignored.
struct FS_LayoutTables::TTI_Feature {
  unsigned int tag = 0;
  std::span<const unsigned short> lookups;  ///< borrowed from the feature list
};

/// All features of a table (OpenType FeatureList).
struct FS_LayoutTables::TTI_FeatureList {
  std::vector<TTI_Feature> features;
  const TTI_Feature* vert = nullptr;  ///< the first feature tagged 'vert', or null

  /// What the features' lookup indices are borrowed from.
  std::vector<std::shared_ptr<const std::vector<unsigned short>>> lookupIndices;
};

namespace layout {

using TTI_Feature = FS_LayoutTables::TTI_Feature;
using TTI_FeatureList = FS_LayoutTables::TTI_FeatureList;
class GraphReader;

/// Reads the FeatureList at `offset` of the table. Always true.
bool readFeatureList(TTI_FeatureList& list, GraphReader& reader, unsigned offset);

}  // namespace layout
}  // namespace QXFontService_NS
