#pragma once

#include <string>
#include <utility>
#include <vector>

#include "qxfontservice/glyph_id_array2.h"

#include "layout/driver/layout_info.h"
#include "layout/driver/process_gsub.h"
#include "layout/table/layout_tables.h"
#include "layout/test_font.h"
#include "support/class_def_builder.h"

namespace qxtest {

using Ids = std::vector<int>;

/// Glyph classes of the tests' fonts: 1 to 49 bases, 50 to 59 marks, 70 to 79 ligatures.
inline std::string testClasses() {
  return classDefOfRanges({{1, 49, 1}, {50, 59, 3}, {70, 79, 2}});
}

/// Glyphs with the classes that the font gives them.
template <class Array = QXFontService_NS::GlyphIDArray>
Array glyphRun(const QXFontService_NS::FS_LayoutTables& font, const Ids& ids) {
  Array array;
  for (const int id : ids) {
    const auto glyph = static_cast<unsigned short>(id);
    array.push_back(glyph, font.glyphClass(glyph));
  }
  return array;
}

inline Ids idsOf(const QXFontService_NS::GlyphIDArray& array) {
  Ids ids;
  for (const auto& pair : array) ids.push_back(pair.glyphID);
  return ids;
}

inline constexpr unsigned kTestTag = 0x74657374;  // 'test', both script and feature

/// What `processGSUB` did for the feature 'test'.
struct Step {
  int result = 0;
  int position = 0;
  Ids output{-1};   ///< -1 alone: untouched
  Ids matched{-1};  ///< likewise
  bool operator==(const Step&) const = default;
};

inline Step stepAt(const QXFontService_NS::FS_LayoutTables& font, const Ids& ids, int position,
                   int alternate = 1) {
  using QXFontService_NS::GlyphIDArray;
  const auto info = QXFontService_NS::layout::makeGSUBGPOSInfo(font, kTestTag, 0);
  const GlyphIDArray input = glyphRun(font, ids);
  GlyphIDArray output = glyphRun(font, {-1});
  GlyphIDArray matched = output;
  Step step;
  step.position = position;
  step.result = QXFontService_NS::layout::processGSUB(info.get(), kTestTag, input, step.position,
                                                      output, matched, alternate);
  if (idsOf(output) != Ids{0xFFFF}) step.output = idsOf(output);
  if (idsOf(matched) != Ids{0xFFFF}) step.matched = idsOf(matched);
  return step;
}

/// What `processGSUB3` did: glyphs, and for each how many it stands for and where it was passed.
struct Pass {
  bool changed = false;
  Ids glyphs;
  Ids liga;
  Ids skip;
  bool operator==(const Pass&) const = default;
};

/// Runs the lookup at `index` of the lookups in order of the script 'test'.
inline Pass passOver(const QXFontService_NS::FS_LayoutTables& font, int index, const Ids& ids,
                     const std::vector<unsigned>& mask = {}, int alternate = 1) {
  using QXFontService_NS::GlyphIDArray2;
  const auto info = QXFontService_NS::layout::makeGSUBGPOSInfo(font, kTestTag, 0);
  auto input = glyphRun<GlyphIDArray2>(font, ids);
  QXFontService_NS::GlyphRecordAccess::words(input) = mask;
  GlyphIDArray2 output;
  Pass pass;
  pass.changed =
      QXFontService_NS::layout::processGSUB3(info.get(), index, input, output, alternate);
  pass.glyphs = idsOf(output);
  for (int i = 0; i < output.size(); ++i) {
    pass.liga.push_back(output.ligaInfo(i));
    pass.skip.push_back(output.skipInfo(i));
  }
  return pass;
}

inline void print(const Ids& ids, std::ostream& out) {
  out << "[ ";
  for (const int id : ids) out << id << ' ';
  out << "] ";
}
inline void PrintTo(const Step& step, std::ostream* out) {
  *out << step.result << " at " << step.position << ' ';
  print(step.output, *out);
  print(step.matched, *out);
}
inline void PrintTo(const Pass& pass, std::ostream* out) {
  *out << (pass.changed ? "changed " : "unchanged ");
  print(pass.glyphs, *out);
  print(pass.liga, *out);
  print(pass.skip, *out);
}

}  // namespace qxtest
