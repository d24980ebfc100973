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
  out.italicAngle = italicAngle(metrics);
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

}  // namespace

std::string pdfName(const std::string& name) {
  constexpr std::string_view kDelimiters = "()<>[]{}/%#";
  std::string usable;
  std::copy_if(name.begin(), name.end(), std::back_inserter(usable), [&](char c) {
    return c > ' ' && c < 0x7F && kDelimiters.find(c) == std::string_view::npos;
  });
  return usable;
}

void numberForPdf(const fs::FS_FontInfo& font, UsedGlyphs& used) {
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
  const std::vector<unsigned short> gids = used.gids();
  const double scale = 1000.0 / std::max(font.getUnitsPerEm(), 1);
  const Style style = styleOf(font);
  const std::string name = nameOf(font);
  PdfFont out;
  out.baseFont = subsetTag(name, gids) + "+" + name;
  out.fontFile = subsetOf(font, wantedGlyphs(used));
  out.isBareCff = isBareCff(out.fontFile);
  out.flags = flagsOf(font, style);
  out.stemV = stemOf(style.weight);
  takeMetrics(font, scale, out);
  std::map<unsigned short, icu::UnicodeString> texts;
  for (const unsigned short gid : gids) {
    const unsigned short code = used.codeOf(gid);
    const double width = static_cast<double>(font.getGlyphWidth(gid, 0, false));
    out.widths.emplace_back(code, width * scale);
    texts.emplace(code, used.texts.at(gid));
  }
  std::sort(out.widths.begin(), out.widths.end());
  out.toUnicode = toUnicodeMap(texts);
  return out;
}

}  // namespace qxfont
