#pragma once

#include <memory>

#include "qxfontservice/glyph_class_def.h"

namespace QXFontService_NS {

/// What the layout tables (OpenType `GDEF`, `GSUB`, `GPOS`) of one font hold, and all that lookups
/// need of a font. The table holder of sfnt fonts derives from it, so the nested classes are its
/// members too; each is defined in a header of its own.
///
/// Filled once by the readers, under the font's load lock; not changed afterwards, so any number
/// of threads may use it then.
struct FS_LayoutTables {
  FS_LayoutTables();
  ~FS_LayoutTables();
  FS_LayoutTables(const FS_LayoutTables&) = delete;
  FS_LayoutTables& operator=(const FS_LayoutTables&) = delete;

  class TTI_Coverage;
  class TTI_CoverageFormat1;
  class TTI_CoverageFormat2;
  class TTI_ClassDef;
  class TTI_ClassDefFormat1;
  class TTI_ClassDefFormat2;
  class GPOS_Anchor;
  class GPOS_AnchorFormat1;
  class GPOS_AnchorFormat2;
  class GPOS_AnchorFormat3;

  struct TTI_SubstLookupRecord;
  class TTI_SubTable;
  class TTI_ContextFormat1;
  class TTI_ContextFormat2;
  class TTI_ContextFormat3;
  class TTI_ChainContextFormat1;
  class TTI_ChainContextFormat2;
  class TTI_ChainContextFormat3;
  class TTI_ReverseChainingContextSingleFormat1;

  class GSUB_SingleSubstFormat1;
  class GSUB_SingleSubstFormat2;
  class GSUB_MultipleSubstFormat1;
  class GSUB_AlternateSubstFormat1;
  class GSUB_LigatureSubstFormat1;
  class GSUB_ContextSubstFormat1;
  class GSUB_ContextSubstFormat2;
  class GSUB_ContextSubstFormat3;
  class GSUB_ChainContextSubstFormat1;
  class GSUB_ChainContextSubstFormat2;
  class GSUB_ChainContextSubstFormat3;
  class GSUB_ReverseChainingContextSingleFormat1;

  class GPOS_SinglePosFormat1;
  class GPOS_SinglePosFormat2;
  class GPOS_PairPosFormat1;
  class GPOS_PairPosFormat2;
  class GPOS_CursivePosFormat1;
  class GPOS_MarkBasePosFormat1;
  class GPOS_MarkLigPosFormat1;
  class GPOS_MarkMarkPosFormat1;
  class GPOS_ContextPosFormat1;
  class GPOS_ContextPosFormat2;
  class GPOS_ContextPosFormat3;
  class GPOS_ChainContextPosFormat1;
  class GPOS_ChainContextPosFormat2;
  class GPOS_ChainContextPosFormat3;

  struct TTI_Lookup;
  struct TTI_LookupList;
  struct TTI_Feature;
  struct TTI_FeatureList;
  struct TTI_LangSys;
  struct TTI_Script;
  struct TTI_LayoutTable;

  /// From `maxp`; format 1 class definitions are held against it. Set before any reader runs.
  unsigned int numGlyphs = 0;
  std::unique_ptr<TTI_LayoutTable> gsub;  ///< never null
  std::unique_ptr<TTI_LayoutTable> gpos;  ///< never null
  /// Whether there is a `GDEF` table and its glyph classes were read.
  bool gdefLoaded = false;
  std::unique_ptr<const TTI_ClassDef> glyphClassDef;       ///< may be null
  std::unique_ptr<const TTI_ClassDef> markAttachClassDef;  ///< may be null

  /// The `GDEF` class of a glyph: -3 without a glyph class table, -1 for 0xFFFF and for a glyph
  /// that the table does not list.
  GlyphClassDef glyphClass(unsigned short glyph) const;
  /// The mark attachment class of a glyph, with the same answers for its table.
  int markAttachClass(unsigned short glyph) const;
};

}  // namespace QXFontService_NS
