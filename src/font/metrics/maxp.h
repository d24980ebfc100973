#pragma once

#include <cstdint>
#include <istream>
#include <optional>

#include "font/directory/table_failure.h"

namespace QXFontService_NS::metrics {

/// The maximum profile of a font (OpenType `maxp`). All but `numGlyphs` are 0 unless the table is
/// of version 1.0.
struct Maxp {
  std::uint16_t numGlyphs = 0;
  std::uint16_t maxPoints = 0;
  std::uint16_t maxContours = 0;
  std::uint16_t maxCompositePoints = 0;
  std::uint16_t maxCompositeContours = 0;
  std::uint16_t maxZones = 0;
  std::uint16_t maxTwilightPoints = 0;
  std::uint16_t maxStorage = 0;
  std::uint16_t maxFunctionDefs = 0;
  std::uint16_t maxInstructionDefs = 0;
  std::uint16_t maxStackElements = 0;
  std::uint16_t maxSizeOfInstructions = 0;
  std::uint16_t maxComponentElements = 0;
  std::uint16_t maxComponentDepth = 0;
};

/// Reads the `maxp` table into `out`, all 0 at first. `table`: its entry in the directory; a font
/// without one has no glyphs, and that is no failure. A failure leaves `out` all 0.
[[nodiscard]] TableResult readMaxp(std::istream& stream, const std::optional<TableRange>& table,
                                   Maxp& out);

}  // namespace QXFontService_NS::metrics
