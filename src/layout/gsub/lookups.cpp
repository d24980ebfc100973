#include "layout/gsub/lookups.h"

#include "layout/gsub/multiple_subst.h"
#include "layout/gsub/substitutes.h"

namespace QXFontService_NS::layout {
namespace {

/// Asks the subtables in order: `answer(subTable)` gives a glyph or 0xFFFF.
template <class Answer>
GlyphIDClassPair firstAnswer(const FS_LayoutTables& font, const TTI_Lookup& lookup,
                             unsigned short glyph, WorkMeter& meter, Answer answer) {
  if (!lookup.starts.contains(glyph)) return {};
  for (const SubTablePtr& subTable : lookup.subTables) {
    if (!meter.compare(1)) break;
    const unsigned short found = subTable ? answer(*subTable) : kNoGlyph;
    if (found != kNoGlyph) return {found, font.glyphClass(found)};
  }
  return {};
}

/// The glyphs of the first subtable that covers `glyph`. A lookup of extensions may hold subtables
/// of other types, which are passed by.
bool sequenceOf(const TTI_Lookup& lookup, unsigned short glyph,
                std::span<const unsigned short>& sequence, WorkMeter& meter) {
  using Multiple = FS_LayoutTables::GSUB_MultipleSubstFormat1;
  if (!lookup.starts.contains(glyph)) return false;
  for (const SubTablePtr& subTable : lookup.subTables) {
    if (!meter.compare(1)) break;
    if (!subTable || subTable->lookupType() != 2) continue;
    const auto* multiple = dynamic_cast<const Multiple*>(subTable.get());
    if (multiple != nullptr && multiple->sequenceOf(glyph, sequence)) return true;
  }
  return false;
}

}  // namespace

GlyphIDClassPair lookupSingle(const FS_LayoutTables& font, const TTI_Lookup& lookup,
                              unsigned short glyph, WorkMeter& meter) {
  return firstAnswer(font, lookup, glyph, meter,
                     [&](const TTI_SubTable& subTable) { return subTable.substGlyph(glyph); });
}

GlyphIDClassPair lookupAlternate(const FS_LayoutTables& font, const TTI_Lookup& lookup,
                                 unsigned short glyph, int number, WorkMeter& meter) {
  if (number < 1) return {};
  return firstAnswer(font, lookup, glyph, meter, [&](const TTI_SubTable& subTable) {
    return subTable.alternateGlyph(glyph, number);
  });
}

GlyphIDClassPair lookupLigature(const FS_LayoutTables& font, const TTI_Lookup& lookup,
                                const GlyphSequence& glyphs, int& position,
                                std::vector<int>& skipped) {
  return firstAnswer(font, lookup, glyphs[position].glyphID, glyphs.meter(),
                     [&](const TTI_SubTable& subTable) {
                       return subTable.ligatureGlyph(font, glyphs, position, lookup.flag, skipped);
                     });
}

GlyphIDClassPair lookupReverse(const FS_LayoutTables& font, const TTI_Lookup& lookup,
                               const GlyphSequence& glyphs, int position) {
  return firstAnswer(font, lookup, glyphs[position].glyphID, glyphs.meter(),
                     [&](const TTI_SubTable& subTable) {
                       return subTable.reverseGlyph(font, glyphs, position, lookup.flag);
                     });
}

bool lookupMultiple(const FS_LayoutTables& font, const TTI_Lookup& lookup, unsigned short glyph,
                    GlyphIDArray& output, WorkMeter& meter) {
  std::span<const unsigned short> sequence;
  if (!sequenceOf(lookup, glyph, sequence, meter)) return false;
  output.clear();
  for (const unsigned short each : sequence) output.push_back(each, font.glyphClass(each));
  return true;
}

}  // namespace QXFontService_NS::layout
