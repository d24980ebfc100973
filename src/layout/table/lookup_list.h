#pragma once

#include <cstdint>
#include <vector>

#include "layout/table/layout_tables.h"
#include "layout/table/lookup.h"

namespace QXFontService_NS {

/// All lookups of a table (OpenType LookupList).
struct FS_LayoutTables::TTI_LookupList {
  std::vector<TTI_Lookup> lookups;

  /// The lookup of this index, or null where there is none.
  const TTI_Lookup* find(unsigned int index) const {
    return index < lookups.size() ? &lookups[index] : nullptr;
  }
};

namespace layout {

using TTI_LookupList = FS_LayoutTables::TTI_LookupList;
class GraphReader;

/// Read the LookupList at `offset` of the table. They trust what they read: a byte outside the
/// table reads as 0, and nothing makes them fail, so the answer is always true.
bool readGSUBLookupList(TTI_LookupList& list, GraphReader& reader, unsigned offset);
bool readGPOSLookupList(TTI_LookupList& list, GraphReader& reader, unsigned offset);

}  // namespace layout
}  // namespace QXFontService_NS
