#include "layout/table/sub_table.h"

namespace QXFontService_NS {

namespace {
constexpr unsigned short kNoGlyph = 0xFFFF;
}

unsigned short FS_LayoutTables::TTI_SubTable::substGlyph(unsigned short) const {
  return kNoGlyph;
}

unsigned short FS_LayoutTables::TTI_SubTable::alternateGlyph(unsigned short, int) const {
  return kNoGlyph;
}

unsigned short FS_LayoutTables::TTI_SubTable::ligatureGlyph(const FS_LayoutTables&,
                                                            const layout::GlyphSequence&, int&,
                                                            unsigned int, std::vector<int>&) const {
  return kNoGlyph;
}

int FS_LayoutTables::TTI_SubTable::matchContext(const FS_LayoutTables&,
                                                std::span<const TTI_SubstLookupRecord>&,
                                                const layout::GlyphSequence&, int, unsigned int,
                                                std::vector<int>&) const {
  return 0;
}

unsigned short FS_LayoutTables::TTI_SubTable::reverseGlyph(const FS_LayoutTables&,
                                                           const layout::GlyphSequence&, int,
                                                           unsigned int) const {
  return kNoGlyph;
}

bool FS_LayoutTables::TTI_SubTable::position(const FS_LayoutTables&, const TTI_LookupList&,
                                             const TTI_Lookup&, layout::PositionRun&, int&,
                                             bool) const {
  return false;
}

void FS_LayoutTables::TTI_SubTable::addStartsTo(layout::GlyphSet& glyphs) const {
  if (startsAnywhere_) {
    glyphs.addAll();
  } else if (coverage_) {
    coverage_->addTo(glyphs);
  }
}

std::size_t FS_LayoutTables::TTI_SubTable::stepsToAddStarts() const {
  return coverage_ ? coverage_->stepsToAdd() : 0;
}

}  // namespace QXFontService_NS
