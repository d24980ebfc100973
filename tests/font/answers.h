#pragma once

#include <iomanip>
#include <map>
#include <memory>
#include <sstream>
#include <string>

#include "qxcommon/mem_stream.h"
#include "qxfontservice/enum_log_font_ex.h"
#include "qxfontservice/new_text_metric_ex.h"
#include "qxfontservice/tt_glyph_map.h"

#include "font/contract/base_font.h"
#include "font/written_form.h"
#include "layout/driver/layout_info.h"

namespace qxtest {

/// What a face answers to each query, by the name of the operation.
using Answers = std::map<std::string, std::string>;

inline std::string textOf(const icu::UnicodeString& text) {
  std::string out;
  return text.toUTF8String(out);
}
template <class Number>
std::string textOf(Number value) {
  std::ostringstream out;
  out << std::setprecision(9) << +value;
  return out.str();
}

/// A host's glyph map that puts all glyphs into one stream.
class OneGlyphStream : public QXFontService_NS::FS_TTGlyphMap {
 public:
  QXFontService_NS::QXMemStream* getGlyphStream(unsigned short) override { return &stream; }
  QXFontService_NS::QXMemStream stream{nullptr, 8192, false, true};
};

inline void addNames(const QXFontService_NS::FS_BaseFont& font, int entry, Answers& out) {
  constexpr auto lang = QXCommonNS::QXLang::LANGID_DEFAULT;
  out["familyName"] = textOf(font.getFamilyName(lang, entry));
  out["familyNameEx"] = textOf(font.getFamilyNameEx(entry));
  out["subFamilyName"] = textOf(font.getSubFamilyName(lang, entry));
  out["fullFontName"] = textOf(font.getFullFontName(lang, entry));
  out["postScriptName"] = textOf(font.getPostScriptName(lang, entry));
  out["preferredFamily"] = textOf(font.getPreferredFamily(lang, entry));
  out["preferredSubFamily"] = textOf(font.getPreferredSubFamily(lang, entry));
  out["cidFindfontName"] = textOf(font.getPostScriptCIDFindfontName(lang, entry));
  out["copyright"] = textOf(font.getCopyright(lang, entry));
  out["manufacturer"] = textOf(font.getManufacturer(lang, entry));
  out["licenseDescription"] = textOf(font.getLicenseDescription(lang, entry));
}

inline void addStyle(const QXFontService_NS::FS_BaseFont& font, int entry, Answers& out) {
  out["weight"] = textOf(font.getFontWeight(entry));
  out["italic"] = textOf(font.isItalicFont(entry));
  out["stretch"] = textOf(font.getFontStretch(entry));
  out["symbolic"] = textOf(font.isSymbolicFont(entry));
  out["fixedWidth"] = textOf(font.isFixedWidthFont(entry));
  out["serif"] = textOf(font.isSerifLikeFont(entry));
  out["script"] = textOf(font.isScriptLikeFont(entry));
  out["familyClass"] = textOf(font.getFamilyClass(entry));
  out["familySubclass"] = textOf(font.getFamilySubclass(entry));
  const auto pages = font.getCodePageRangeBitFields(entry);
  out["codePages"] = textOf(pages.bits0) + " " + textOf(pages.bits1);
  QXFontService_NS::PANOSE panose{};
  const bool known = font.getPanose(panose, entry) == &panose;
  out["panose"] = known ? textOf(panose.bFamilyType) + " " + textOf(panose.bXHeight) : "null";
}

inline void addRecords(const QXFontService_NS::FS_BaseFont& font, int entry, Answers& out) {
  QXFontService_NS::FS_EnumLogFontEx log;
  out["logFont"] = textOf(font.getLogFont(log, entry)) + " " + textOf(log.getFaceName()) + " " +
                   textOf(log.getFullName()) + " " + textOf(log.getWeight());
  QXFontService_NS::FS_NewTextMetricEx metric;
  out["newTextMetric"] = textOf(font.getNewTextMetricEx(metric, entry)) + " " +
                         textOf(metric.getAscent()) + " " + textOf(metric.getTypoDescender());
  out["outlineTextMetrics"] = textOf(font.getOutlineTextMetrics(metric, -500, entry)) + " " +
                              textOf(metric.getAscent()) + " " + textOf(metric.getBBoxTop());
}

inline void addMetrics(const QXFontService_NS::FS_BaseFont& font, int entry, Answers& out) {
  out["unitsPerEm"] = textOf(font.getUnitsPerEm(entry));
  out["xHeight"] = textOf(font.getXHeight(entry));
  out["capHeight"] = textOf(font.getCapHeight(entry));
  out["typoAscender"] = textOf(font.getTypoAscender(entry));
  out["typoDescender"] = textOf(font.getTypoDescender(entry));
  int missing = -9;
  out["textWidth"] =
      textOf(font.getTextWidth(u"AB x", -1000, false, &missing, entry)) + " " + textOf(missing);
  out["glyphWidth"] = textOf(font.getGlyphWidth(2, 500, false, entry));
  out["verticalWidth"] = textOf(font.getGlyphWidth(2, 500, true, entry));
  out["defaultCharWidth"] = textOf(font.getDefaultCharWidth(-500, entry));
  out["hasPairKerning"] = textOf(font.hasPairKerningInfo(false, entry));
  out["pairKerning"] = textOf(font.getPairKerningValue(2, 3, -1000, false, entry));
  out["hasVerticalMetrics"] = textOf(font.hasVerticalMetrics(entry));
}

inline void addGlyphs(const QXFontService_NS::FS_BaseFont& font, int entry, Answers& out) {
  out["glyphID"] = textOf(font.getGlyphID('A', false, entry));
  out["verticalGlyphID"] = textOf(font.getGlyphID('A', true, entry));
  unsigned short glyphs[4] = {9, 9, 9, 9};
  int count = -9;
  int missing = -9;
  const bool known = font.getGlyphIDs(u"ABx", glyphs, count, false, &missing, entry);
  out["glyphIDs"] = textOf(known) + " " + textOf(glyphs[0]) + " " + textOf(glyphs[2]) + " " +
                    textOf(count) + " " + textOf(missing);
  out["glyphClass"] = textOf(static_cast<int>(font.getGlyphClassDef(2, entry)));
  out["stringID"] = textOf(font.getStringID(2, entry));
  out["hasVerticalGlyph"] = textOf(font.hasVerticalGlyph(entry));
  out["hasVariationSelector"] = textOf(font.hasVariationSelector(entry));
  out["variationSequence"] = textOf(font.variationSequence('A', 0xFE00, entry));
  out["eudcGlyphID"] = textOf(font.getEudcGlyphID('A', entry));
  out["charCount"] = textOf(font.getEmbedableCharCount(entry));
  const std::unique_ptr<QXFontService_NS::FS_GSUBGPOSInfo> layout(
      font.getGSUBGPOSInfo(0x6C61746E, 0, entry));
  out["layout"] =
      layout ? textOf(QXFontService_NS::layout::hasGSUBInfo(layout.get())) : std::string("null");
}

inline void addFacts(const QXFontService_NS::FS_BaseFont& font, int entry, Answers& out) {
  out["hasRecord"] = textOf(font.getTrueTypeInfo(entry) != nullptr);
  out["hasCff"] = textOf(font.getCFFFont(entry) != nullptr);
  out["trueTypeOrCID"] = textOf(font.isTrueTypeOrCID(entry));
  out["type1OrNoCID"] = textOf(font.isType1OrNoCID(entry));
  out["encodingScheme"] = textOf(static_cast<int>(font.getEncodingScheme(entry)));
  QXFontService_NS::FS_CIDSystemInfo info;
  out["cidSystemInfo"] = textOf(font.getCIDSystemInfo(info, entry)) + " " + textOf(info.Registry);
  out["canEmbed"] = textOf(font.canEmbedFont(entry));
  out["embeddingAllowed"] = textOf(font.isEmbeddingAllowed(entry));
  out["embedStatus"] = textOf(static_cast<int>(font.getEmbedStatus(entry)));
  out["licence"] = textOf(font.getFontEmbeddingLicence(entry));
  out["vertOriginY"] = textOf(font.getDefaultVertOriginY(10, entry)) + " " +
                       textOf(font.getGlyphVertOriginY(2, 10, entry));
}

/// Each query of a face, asked about letters and glyphs that the sample font has.
inline Answers answersOf(const QXFontService_NS::FS_BaseFont& font, int entry) {
  Answers out;
  addNames(font, entry, out);
  addStyle(font, entry, out);
  addRecords(font, entry, out);
  addMetrics(font, entry, out);
  addGlyphs(font, entry, out);
  addFacts(font, entry, out);
  return out;
}

/// What each form of embedding gives for glyph 2 of a face.
inline Answers formsOf(QXFontService_NS::FS_BaseFont& font, int entry,
                       std::istream* source = nullptr) {
  const QXFontService_NS::GlyphIDs gids{2};
  const unsigned int* all = nullptr;
  OneGlyphStream map;
  Answers out;
  out["allTables"] =
      formOf([&](auto& o) { return font.getEmbedFont(gids, o, all, entry, source); });
  out["embed"] = formOf([&](auto& o) { return font.getEmbedFont(gids, o, entry, source); });
  out["svg"] = formOf([&](auto& o) { return font.getSVG2EmbedFont(gids, o, entry, source); });
  out["withCmap"] =
      formOf([&](auto& o) { return font.getEmbedFontWithCmap(gids, o, entry, source); });
  out["stream"] = formOf([&](auto& o) { return font.getEmbedFontStream(o, entry, source); });
  out["ps"] = formOf([&](auto& o) { return font.getPSEmbedFont(gids, o, map, entry, source); });
  out["psGlyphs"] = bytesIn(map.stream);
  out["web"] = formOf([&](auto& o) { return font.makeWebFont(gids, o, entry, source); });
  out["subset"] = formOf([&](auto& o) { return font.makeSubsetFont(gids, o, entry, source); });
  return out;
}

/// Where two faces differ, a line for each query; empty where they do not.
inline std::string difference(const Answers& a, const Answers& b) {
  std::string lines;
  for (const auto& [query, answer] : a) {
    const auto other = b.find(query);
    const std::string& said = other == b.end() ? query : other->second;
    if (said != answer) lines += query + ": " + answer + " | " + said + "\n";
  }
  return lines;
}

}  // namespace qxtest
