#pragma once

#include <map>
#include <memory>
#include <span>
#include <utility>
#include <vector>

#include "layout/table/layout_tables.h"

namespace QXFontService_NS {

/// What a language system turns on (OpenType LangSys table).
struct FS_LayoutTables::TTI_LangSys {
  /// Stored only: the required feature applies where it stands in the list of features too.
  unsigned short requiredFeature = 0;
  unsigned short featureCount = 0;
  /// (feature tag, lookup index), one for each lookup of each feature, ascending by lookup index.
  /// A lookup of two features stands here twice, and hosts that walk all entries run it twice.
  std::vector<std::pair<unsigned int, unsigned int>> lookupsInOrder;
  /// (feature tag, the feature's lookups as they stand in it), ascending by tag; features of one
  /// tag keep the table's order.
  std::vector<std::pair<unsigned int, std::span<const unsigned short>>> featuresByTag;

  using Features = std::span<const std::pair<unsigned int, std::span<const unsigned short>>>;
  /// The features of this tag.
  Features featuresOf(unsigned int tag) const;
};

/// The language systems of a script by language tag (OpenType Script table); the default one
/// stands under 0. Ordered, as a font could choose tags that meet in one place of a hash table.
struct FS_LayoutTables::TTI_Script {
  std::map<unsigned int, std::shared_ptr<const TTI_LangSys>> langSys;
};

namespace layout {

using TTI_LangSys = FS_LayoutTables::TTI_LangSys;
using TTI_Script = FS_LayoutTables::TTI_Script;
using TTI_LayoutTable = FS_LayoutTables::TTI_LayoutTable;
class GraphReader;

/// Reads the ScriptList at `offset` of the table, and resolves its features in the table's feature
/// list, which must have been read before. Always true.
///
/// The first record of a tag counts. Scripts and language systems at one place are read once and
/// shared.
bool readScriptList(TTI_LayoutTable& table, GraphReader& reader, unsigned offset);

}  // namespace layout
}  // namespace QXFontService_NS
