#pragma once

#include <map>
#include <memory>

#include "common/bytes/byte_view.h"
#include "layout/table/feature_list.h"
#include "layout/table/layout_tables.h"
#include "layout/table/lookup_list.h"
#include "layout/table/script_list.h"

namespace QXFontService_NS {

/// One table of layout, OpenType `GSUB` or `GPOS`.
struct FS_LayoutTables::TTI_LayoutTable {
  std::map<unsigned int, std::shared_ptr<const TTI_Script>> scripts;  ///< by tag
  TTI_FeatureList featureList;
  TTI_LookupList lookupList;
};

namespace layout {

/// Which list of a table did not lie within it, so that it and all after it were left out. Nothing
/// deeper can fail: the readers themselves trust their bytes.
enum class LayoutTableFailure { none, featureList, lookupList, scriptList };

/// Where the lists of a `GSUB` or `GPOS` table stand, from its header; 0 for a list that is not
/// there. The version is not looked at.
struct LayoutTableHeader {
  unsigned scriptList = 0;
  unsigned featureList = 0;
  unsigned lookupList = 0;
};
LayoutTableHeader readLayoutTableHeader(QXCommonNS::bytes::ByteView table);

/// Read a whole `GSUB` or `GPOS` table into `font`: features, lookups, scripts, in this order, as
/// scripts resolve into features. A list with an offset of 0 is not there, which is no failure.
/// What was there is replaced. The bytes are not needed afterwards.
LayoutTableFailure readGSUB(FS_LayoutTables& font, QXCommonNS::bytes::ByteView table);
LayoutTableFailure readGPOS(FS_LayoutTables& font, QXCommonNS::bytes::ByteView table);

}  // namespace layout
}  // namespace QXFontService_NS
