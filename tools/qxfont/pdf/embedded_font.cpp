#include "qxfont/pdf/embedded_font.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <string_view>

#include "qxfontservice/ext/numbering.h"

#include "qxfont/cli/font_facts.h"
#include "qxfont/cli/status.h"
#include "qxfont/cli/text.h"
#include "qxfont/embed/form.h"
#include "qxfont/embed/pdf_name.h"
#include "qxfont/embed/type1_names.h"
#include "qxfont/embed/type1_page.h"
#include "qxfont/pdf/subset_tag.h"
#include "qxfont/pdf/to_unicode.h"

namespace qxfont {
namespace {

namespace fs = QXFontService_NS;

// Bits of the flags of a font descriptor (ISO 32000-1, table 123).
constexpr int kFixedPitch = 1 << 0;
constexpr int kSerif = 1 << 1;
constexpr int kSymbolic = 1 << 2;
constexpr int kScript = 1 << 3;
constexpr int kNonsymbolic = 1 << 5;
constexpr int kItalic = 1 << 6;

struct Style {
  int weight = 0;
  bool italic = false;
};

Style styleOf(const fs::FS_FontInfo& font) {
  Style style;
  font.getFontStyle(&style.weight, &style.italic, nullptr);
  return style;
}

int flagsOf(const fs::FS_FontInfo& font, const Style& style) {
  int flags = font.isSymbolicFont() ? kSymbolic : kNonsymbolic;
  if (font.isFixedWidthFont()) flags |= kFixedPitch;
  if (font.isSerifLikeFont()) flags |= kSerif;
  if (font.isScriptLikeFont()) flags |= kScript;
  if (style.italic) flags |= kItalic;
  return flags;
}

/// Fonts do not state the thickness of their stems; this follows from the weight well enough for
/// the substitute that a reader would take, and none is taken for an embedded font.
double stemOf(int weight) {
  return std::round(50 + std::pow(weight / 65.0, 2));
}

void takeMetrics(const fs::FS_FontInfo& font, double scale, PdfFont& out) {
  const fs::FS_NewTextMetricEx metrics = metricsInUnits(font);
  const auto scaled = [&](float units) { return std::round(static_cast<double>(units) * scale); };
  out.bounds = {scaled(metrics.getBBoxLeft()), scaled(metrics.getBBoxBottom()),
                scaled(metrics.getBBoxRight()), scaled(metrics.getBBoxTop())};
  out.italicAngle = italicAngle(font, metrics);
  out.ascent = scaled(metrics.getAscent());
  out.descent = -std::fabs(scaled(metrics.getDescent()));
  out.capHeight = scaled(metrics.getCapHeight());
}

std::string fileOf(const fs::FS_FontInfo& font) {
  return utf8(font.getFontFileName().getLocalPath(true));
}

/// Glyphs to be written. Glyph 0 is in every font: a bare CFF would have it twice.
std::vector<unsigned short> wantedGlyphs(const UsedGlyphs& used) {
  std::vector<unsigned short> gids = used.gids();
  if (gids.size() > 1 && gids.front() == 0) gids.erase(gids.begin());
  return gids;
}

std::string subsetOf(const fs::FS_FontInfo& font, const std::vector<unsigned short>& gids) {
  FormResult result;
  for (const char* form : {"sfnt", "cff"}) {
    if (!formOf(form).serves(font)) continue;
    if (formOf(form).write(font, gids, result) && !result.bytes.empty()) return result.bytes;
  }
  throw ToolError(Status::badFont, fileOf(font) + " does not give its glyphs");
}

/// An sfnt begins with another version.
bool isBareCff(const std::string& fontFile) {
  constexpr std::string_view kCffVersion("\x01\x00", 2);
  return fontFile.compare(0, kCffVersion.size(), kCffVersion) == 0;
}

std::string nameOf(const fs::FS_FontInfo& font) {
  for (const auto& name :
       {font.getPostScriptName(fs::QXLang::LANGID_DEFAULT), font.getFamilyNameEx()}) {
    const std::string usable = pdfName(utf8(name));
    if (!usable.empty()) return usable;
  }
  return "Font";
}

/// The width of a glyph of Type 1 stands by its character in the metrics.
double widthIn(const fs::FS_FontInfo& font, const UsedGlyphs& used, unsigned short gid) {
  if (used.codePage == UsedGlyphs::kNoCodePage)
    return static_cast<double>(font.getGlyphWidth(gid, 0, false));
  return used.widths.at(gid) * font.getUnitsPerEm();
}

void takeCodes(const fs::FS_FontInfo& font, const UsedGlyphs& used, double scale, PdfFont& out) {
  std::map<unsigned short, icu::UnicodeString> texts;
  for (const auto& [gid, text] : used.texts) {
    const unsigned short code = used.codeOf(gid);
    out.widths.emplace_back(code, widthIn(font, used, gid) * scale);
    texts.emplace(code, text);
  }
  std::sort(out.widths.begin(), out.widths.end());
  out.toUnicode = toUnicodeMap(texts, used.codePage == UsedGlyphs::kNoCodePage ? 2 : 1);
}

/// All but the font program.
PdfFont described(const fs::FS_FontInfo& font, const UsedGlyphs& used) {
  const double scale = 1000.0 / std::max(font.getUnitsPerEm(), 1);
  const Style style = styleOf(font);
  const std::string name = nameOf(font);
  PdfFont out;
  out.baseFont = subsetTag(name, used.gids()) + "+" + name;
  out.flags = flagsOf(font, style);
  out.stemV = stemOf(style.weight);
  takeMetrics(font, scale, out);
  takeCodes(font, used, scale, out);
  return out;
}

void takeType1(const fs::FS_FontInfo& font, const UsedGlyphs& used, PdfFont& out) {
  const Type1Page page = type1Pages(font, used.gids()).front();
  out.fontFile = withoutSegments(page);
  out.type1 = PdfType1{page.lengths, namesOnCodePage(font, used.texts)};
}

}  // namespace

void numberForPdf(const fs::FS_FontInfo& font, UsedGlyphs& used) {
  if (used.codePage != UsedGlyphs::kNoCodePage) return;  // it has its codes
  for (const auto& row :
       fs::ext::numberGlyphs(font, fs::ext::NumberedForm::embedFont, wantedGlyphs(used))) {
    used.codes.emplace(row.glyph, row.id);
  }
  used.codes[0] = 0;
  for (const unsigned short gid : used.gids()) {
    if (used.codes.count(gid) != 0) continue;
    throw ToolError(Status::badFont, fmt::format("{}: glyph {} has no name of its own, so that no "
                                                 "document can ask for it",
                                                 fileOf(font), gid));
  }
}

PdfFont embeddedFont(const fs::FS_FontInfo& font, const UsedGlyphs& used) {
  PdfFont out = described(font, used);
  if (used.codePage != UsedGlyphs::kNoCodePage) {
    takeType1(font, used, out);
    return out;
  }
  out.fontFile = subsetOf(font, wantedGlyphs(used));
  out.isBareCff = isBareCff(out.fontFile);
  return out;
}

}  // namespace qxfont
