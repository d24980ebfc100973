#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "layout/driver/layout_info.h"
#include "layout/driver/process_gpos.h"
#include "layout/gpos/lookup_run.h"
#include "layout/gpos/record_flag.h"
#include "layout/test_font.h"
#include "support/class_def_builder.h"
#include "support/context_builder.h"
#include "support/coverage_builder.h"
#include "support/gpos_builder.h"
#include "support/layout_table_builder.h"

namespace qxtest::gpos {

using QXFontService_NS::GlyphIDPosition;
using Glyphs = std::vector<GlyphIDPosition>;
using QXFontService_NS::layout::kAbsolute;
using QXFontService_NS::layout::kByComponent;
using QXFontService_NS::layout::kPassesComponents;
using QXFontService_NS::layout::kSeesZeroWidth;

inline constexpr int kOutside = 0x0002;
inline constexpr unsigned kIgnoreBases = 0x0002;
inline constexpr unsigned kIgnoreMarks = 0x0008;
inline constexpr unsigned kTestTag = 0x74657374;  // 'test', both script and feature

/// Glyph classes of the tests' fonts: 1 to 49 bases, 50 to 59 marks, 60 to 69 components, 70 to 79
/// ligatures; others have none.
inline std::string testClasses() {
  return classDefOfRanges({{1, 49, 1}, {50, 59, 3}, {60, 69, 4}, {70, 79, 2}});
}

/// A font whose `GPOS` table has these bytes.
struct GposFont : TestFont {
  explicit GposFont(const std::string& bytes, const std::string& gdef = gdefTable(testClasses())) {
    QXFontService_NS::layout::readGDEF(*this, viewOf(gdef));
    QXFontService_NS::layout::readGPOS(*this, viewOf(bytes));
  }
  /// With one lookup, alone in feature 'test' of script 'test'.
  GposFont(unsigned type, unsigned flag, const std::vector<std::string>& subTables)
      : GposFont(tableOf(type, flag, subTables)) {}

 private:
  static std::string tableOf(unsigned type, unsigned flag,
                             const std::vector<std::string>& subTables) {
    LayoutTableBuilder table;
    table.onlyLookup("test", type, flag, subTables);
    return table.str();
  }
};

/// The class that `testClasses` gives a glyph.
inline int testClassOf(int id) {
  if (id < 1 || id > 79) return -1;
  if (id >= 70) return 2;
  if (id >= 60) return 4;
  return id >= 50 ? 3 : 1;
}

/// A glyph as a host places it: marks have no width, others are 500 wide, if nothing is said.
inline GlyphIDPosition placed(int id, int flag = 0, int width = -1) {
  const int cls = testClassOf(id);
  const int itsWidth = cls == 3 ? 0 : 500;
  GlyphIDPosition glyph(1, width >= 0 ? width : itsWidth);
  glyph.setGlyphID(static_cast<unsigned short>(id),
                   static_cast<QXFontService_NS::GlyphClassDef>(cls));
  glyph.setFlag(flag);
  return glyph;
}

/// What `GPOS` changes of a record.
struct Moves {
  int x1 = 0;
  int x2 = 0;
  int y = 0;
  bool operator==(const Moves&) const = default;
};
inline void PrintTo(const Moves& moves, std::ostream* out) {
  *out << "x1 " << moves.x1 << " x2 " << moves.x2 << " y " << moves.y;
}
inline Moves movesOf(const GlyphIDPosition& glyph) {
  return {glyph.getMoveX1(), glyph.getMoveX2(), glyph.getMoveY()};
}
inline std::vector<Moves> movesOf(const Glyphs& glyphs) {
  std::vector<Moves> moves;
  for (const GlyphIDPosition& glyph : glyphs) moves.push_back(movesOf(glyph));
  return moves;
}
inline GlyphIDPosition& at(Glyphs& glyphs, int i) {
  return glyphs[static_cast<std::size_t>(i)];
}

/// Runs a lookup of the font at a position, which moves on as the lookup moves it.
inline bool applyAt(const GposFont& font, Glyphs& glyphs, int& position, bool rightToLeft = false,
                    unsigned lookup = 0) {
  namespace layout = QXFontService_NS::layout;
  const auto& lookups = font.gpos->lookupList;
  layout::PositionRun run(glyphs, layout::WorkMeter::forStep(static_cast<int>(glyphs.size())));
  layout::LookupRun lookupRun(font, lookups, run, rightToLeft);
  return lookupRun.applyGPOSLookup(lookups.lookups.at(lookup), position);
}
/// The same where the position is of no interest.
inline bool appliesAt(const GposFont& font, Glyphs& glyphs, int position,
                      bool rightToLeft = false) {
  return applyAt(font, glyphs, position, rightToLeft);
}

inline bool stepAt(const GposFont& font, Glyphs& glyphs, int position, bool rightToLeft = false,
                   unsigned script = kTestTag, unsigned tag = kTestTag) {
  const auto info = QXFontService_NS::layout::makeGSUBGPOSInfo(font, script, 0);
  return QXFontService_NS::layout::processGPOS(info.get(), tag, glyphs, position, rightToLeft);
}
inline int passOver(const GposFont& font, int index, Glyphs& glyphs, bool rightToLeft = false) {
  const auto info = QXFontService_NS::layout::makeGSUBGPOSInfo(font, kTestTag, 0);
  return QXFontService_NS::layout::processGPOS3(info.get(), index, glyphs, rightToLeft);
}

/// Moves the glyphs `ids` by `dx`, and their advance stays where it is.
inline std::string shift(const std::vector<unsigned>& ids, int dx) {
  return singlePos1(coverage(ids), 1, {dx});
}

}  // namespace qxtest::gpos
