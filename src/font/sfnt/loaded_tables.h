#pragma once

#include <memory>

#include "embed/cff/cff_info.h"
#include "font/cmap/character_maps.h"
#include "font/metrics/hmtx.h"
#include "font/metrics/kern.h"
#include "font/metrics/maxp.h"
#include "font/metrics/mort.h"

namespace QXFontService_NS::sfnt {

/// What is read of a font only when a host wants to set text in it. The layout tables stand beside
/// it. Immutable once published.
struct LoadedTables {
  /// Null without a `CFF ` table that could be read.
  std::unique_ptr<FS_CFFInfo> cff;
  metrics::Maxp maxp;
  cmap::CharacterMaps maps;
  metrics::HMetrics hMetrics;
  metrics::KernPairs kern;
  metrics::MortPairs mort;
  /// `GSUB` has a list of features, or `mort` vertical pairs.
  bool hasVerticalForms = false;
  /// No table failed to be read.
  bool tablesGood = true;
};

}  // namespace QXFontService_NS::sfnt
