#pragma once

#include <atomic>
#include <istream>
#include <memory>

#include "qxcommon/lock.h"
#include "qxfontservice/cid_system_info.h"
#include "qxfontservice/code_page_range.h"
#include "qxfontservice/embed_status.h"
#include "qxfontservice/names.h"
#include "qxfontservice/panose.h"

#include "font/contract/eudc_link.h"
#include "font/contract/font_key.h"
#include "font/directory/table_failure.h"
#include "font/metrics/size_scale.h"
#include "font/names/name_set.h"
#include "font/sfnt/loaded_tables.h"
#include "font/sfnt/sfnt_records.h"
#include "layout/table/layout_tables.h"

namespace QXFontService_NS {

class FS_BaseFont;
class FS_EnumLogFontEx;
class FS_NewTextMetricEx;

/// The record of one sfnt font: a font file has one, a collection or a resource fork one for each
/// member.
///
/// It is read in two stages. `readSfnt` takes what a listed font needs: directory, small tables,
/// names. `loadTables` takes the big tables, once, when a host wants to set text. Queries answer
/// from memory, take no lock and may be asked by any number of threads; what needs the second
/// stage answers neutrally before it.
class FS_TrueTypeInfo : public FS_LayoutTables {
 public:
  using TableRecord = sfnt::TableRecord;

  FS_TrueTypeInfo();
  ~FS_TrueTypeInfo();

  // --- Reading (OpenType font file; OS/2, head, hhea, name, post, vhea, vmtx) ---

  /// Reads the sfnt font whose offset table `stream` stands at; the stream stays open. The type of
  /// `owner`, which must outlive this, decides the variations between files.
  /// @return false: the record is of no use. `error`, if given, holds the reason, but for a font
  ///   that is none of ours it is left alone.
  bool readSfnt(QXError* error, std::istream* stream, FS_BaseFont* owner);

  /// Reads the big tables, once. With a null `stream` the owner's file is opened for the call.
  /// @return whether all that is there could be read; later calls give the same answer and report
  ///   nothing. `error`, if given, holds the last report.
  bool loadTables(QXError* error, std::istream* stream);

  /// Whether the second stage is over.
  [[nodiscard]] bool tablesLoaded() const { return published_.load() != nullptr; }

  // --- Tables ---

  [[nodiscard]] bool hasGlyf() const;
  [[nodiscard]] bool hasCFF() const { return getTable(sfnt::tagOf("CFF ")) != nullptr; }
  /// Whether outlines can be written out; what the licence says is another question.
  [[nodiscard]] bool canEmbedFont() const { return hasGlyf() || hasCFF(); }
  /// Where a table stands in the file, or null.
  [[nodiscard]] const TableRecord* getTable(unsigned int tag) const;
  /// The decoded small tables.
  [[nodiscard]] const sfnt::SfntRecords& records() const { return records_; }
  /// The decoded big tables; empty before they are loaded.
  [[nodiscard]] const sfnt::LoadedTables& loaded() const;
  /// For the writers of subsets, one thread at a time.
  [[nodiscard]] FS_TableDirectoryImage& image() { return records_.image; }

  // --- Names (OpenType `name`) ---

  /// A name by language (0: the default one) and slot; empty where there is none.
  [[nodiscard]] UnicodeString getName(int language, int slot) const;
  [[nodiscard]] UnicodeString getName(int language, NameSlot slot) const {
    return getName(language, static_cast<int>(slot));
  }
  void setPostScriptName(const UnicodeString& name) { records_.names.setPostScriptName(name); }

  // --- Style ---

  [[nodiscard]] int getFontWeight() const;
  [[nodiscard]] bool isItalicFont() const;
  [[nodiscard]] int getFontStretch() const;
  /// The style under which the pool keeps the face.
  [[nodiscard]] FS_FontKey styleKey() const;
  [[nodiscard]] bool isSymbolicFont() const;
  [[nodiscard]] bool isFixedWidthFont() const { return records_.isFixedPitch; }
  [[nodiscard]] bool isSerifLikeFont() const;
  [[nodiscard]] bool isScriptLikeFont() const;
  /// The two bytes of sFamilyClass; 0 without `OS/2`.
  [[nodiscard]] unsigned char getFamilyClass() const;
  [[nodiscard]] unsigned char getFamilySubclass() const;
  /// Fills and returns `out`; null, with `out` untouched, without `OS/2`.
  PANOSE* getPanose(PANOSE& out) const;
  [[nodiscard]] FS_CodePageRange getCodePageRangeBitFields() const;
  /// As a signed 16-bit number: above 32767 negative, though scaling takes it as it is.
  [[nodiscard]] int getUnitsPerEm() const;
  [[nodiscard]] FS_EMBEDSTATUS getEmbedStatus() const;
  [[nodiscard]] bool isEmbeddingAllowed() const { return getEmbedStatus() == FS_EMBED_ALLOWED; }
  [[nodiscard]] unsigned short getFontEmbeddingLicence() const { return records_.os2.fsType; }

  // --- Metrics ---

  /// What sizes are measured by, in font units.
  [[nodiscard]] metrics::SizeBases sizeBases() const;
  /// Letter heights in em; 0 where the font does not tell.
  [[nodiscard]] float getXHeight() const;
  [[nodiscard]] float getCapHeight() const;
  /// In em.
  [[nodiscard]] float getTypoAscender() const;
  [[nodiscard]] float getTypoDescender() const;
  /// Whether there are vertical metrics; false after a load that found no vertical glyphs.
  [[nodiscard]] bool hasVerticalMetrics() const;
  void getLogFont(FS_EnumLogFontEx& out) const;
  /// The metrics record in font units.
  void getNewTextMetricEx(FS_NewTextMetricEx& out) const;
  /// The metrics record at `size`: the cell height if positive, the em if negative.
  void getOutlineTextMetrics(FS_NewTextMetricEx& out, int size) const;

  // --- Glyphs ---

  [[nodiscard]] unsigned short getGlyphID(int code, bool vertical) const;
  /// See `QXFontService_NS::getGlyphIDs`.
  void getGlyphIDs(const UnicodeString& text, unsigned short* out, int& count, bool vertical,
                   int* firstMissing) const;
  [[nodiscard]] float getGlyphWidth(unsigned short gid, int size, bool vertical) const;
  [[nodiscard]] float getDefaultCharWidth(int size) const;
  [[nodiscard]] float getTextWidth(const UnicodeString& text, int size, bool vertical,
                                   int* firstMissing) const;
  [[nodiscard]] bool hasPairKerningInfo(bool vertical) const;
  [[nodiscard]] float getPairKerningValue(unsigned short left, unsigned short right, int size,
                                          bool vertical) const;
  /// The glyph that stands for `gid` in vertical text, or `gid`.
  [[nodiscard]] unsigned short verticalGlyph(unsigned short gid) const;
  /// Whether the font can stand vertically, or was told that it does.
  [[nodiscard]] bool hasVerticalGlyph() const;

  /// Whether the font lists variation sequences.
  [[nodiscard]] bool hasVariationSelector() const { return loaded().maps.hasVariationSelector(); }
  [[nodiscard]] unsigned short variationSequence(int code, int selector) const;
  /// The largest number of characters that one of the character maps has.
  [[nodiscard]] unsigned int getEmbedableCharCount() const { return loaded().maps.maxCharCount(); }

  // --- CFF ---

  /// The `CFF ` table, or null before it was read and where there is none; owned by the record.
  [[nodiscard]] FS_CFFInfo* cffFont() const { return loaded().cff.get(); }
  /// The character collection of a CID-keyed CFF; false, with `out` untouched, for others.
  bool getCIDSystemInfo(FS_CIDSystemInfo& out) const;

  // --- End-user-defined characters ---

  void setEudcFlag() { eudcFlag_ = true; }
  [[nodiscard]] contract::EudcLink& eudcLink() { return eudcLink_; }
  [[nodiscard]] const contract::EudcLink& eudcLink() const { return eudcLink_; }
  /// The glyph of `code` as an EUDC font gives it: none where its width is 0.
  [[nodiscard]] unsigned short getEudcGlyphID(int code) const;

 private:
  bool loadFromFile(QXError* error);
  void load(QXError* error, std::istream& stream, bool useZeroGlyph);
  void report(QXError* error, const TableFailure& failure) const;

  FS_BaseFont* owner_ = nullptr;
  sfnt::SfntRecords records_;
  contract::EudcLink eudcLink_;
  std::atomic<bool> eudcFlag_{false};

  QXLock tableMutex_;
  bool couldNotOpen_ = false;  // under tableMutex_
  std::unique_ptr<const sfnt::LoadedTables> loaded_;
  std::atomic<const sfnt::LoadedTables*> published_{nullptr};  // written last of all
};

}  // namespace QXFontService_NS
