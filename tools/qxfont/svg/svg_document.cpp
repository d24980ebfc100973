#include "qxfont/svg/svg_document.h"

#include <fmt/format.h>
#include <unicode/uchar.h>

#include <algorithm>
#include <map>

#include "qxfontservice/ext/numbering.h"

#include "qxfont/cli/status.h"
#include "qxfont/cli/text.h"
#include "qxfont/html/css_grey.h"
#include "qxfont/html/html_text.h"
#include "qxfont/pdf/pdf_number.h"
#include "qxfont/svg/glyph_path.h"

namespace qxfont {
namespace {

namespace fs = QXFontService_NS;

using GlyphsByCode = std::map<unsigned short, unsigned short>;

constexpr double kPageGap = 12;  // points

ToolError notDrawn(const fs::FS_FontInfo& font, unsigned short gid) {
  return {Status::badFont, fmt::format("glyph {} of {} cannot be drawn", gid,
                                       shown(font.getFontFileName().getLocalPath(true)))};
}

/// A length that is scaled to a glyph: pages are measured in points, glyphs in thousands of units.
std::string scaleNumber(double value) {
  return fmt::format("{:.6g}", value);
}

/// The characters for which pages ask a Type 1 font, and their mirrors, which stand for them in
/// text from right to left.
std::vector<int> charactersOf(const UsedGlyphs& used) {
  std::vector<int> characters;
  for (const auto& [code, text] : used.texts) {
    if (text.isEmpty()) continue;
    characters.push_back(text.char32At(0));
    characters.push_back(u_charMirror(text.char32At(0)));
  }
  return characters;
}

/// The glyphs of the font program that pages use: pages know those of a Type 1 font by codes.
GlyphsByCode programGlyphs(const fs::FS_FontInfo& font, const UsedGlyphs& used) {
  GlyphsByCode glyphs;
  if (used.codePage == UsedGlyphs::kNoCodePage) {
    for (const unsigned short gid : used.gids()) glyphs.emplace(gid, gid);
    return glyphs;
  }
  if (used.texts.count(0) != 0) glyphs.emplace(0, 0);
  for (const auto& row : fs::ext::numberCharacters(font, charactersOf(used))) {
    if (row.glyph != fs::FS_NO_GLYPH && used.texts.count(row.code) != 0)
      glyphs.emplace(row.code, row.glyph);
  }
  return glyphs;
}

std::string useOf(const PlacedLine& line, const Glyph& glyph, double pen, double height,
                  std::size_t index, double unitsPerEm) {
  const double x = line.x + (pen + glyph.dx) * line.size;
  const double y = height - line.baseline - glyph.dy * line.size;
  const std::string scale = scaleNumber(line.size / unitsPerEm);
  return fmt::format("<use href=\"#f{}g{}\" transform=\"translate({} {})scale({} -{})\"/>\n", index,
                     glyph.gid, pdfNumber(x), pdfNumber(y), scale, scale);
}

std::string rectangle(const Rule& rule, double height) {
  return fmt::format("<rect x=\"{}\" y=\"{}\" width=\"{}\" height=\"{}\" fill=\"{}\"/>\n",
                     pdfNumber(rule.x), pdfNumber(height - rule.y - rule.height),
                     pdfNumber(rule.width), pdfNumber(rule.height), cssGrey(rule.grey));
}

std::string sheet(const PageSize& size) {
  return fmt::format("<rect width=\"{}\" height=\"{}\" fill=\"#fff\"/>\n", pdfNumber(size.width),
                     pdfNumber(size.height));
}

std::string head(const SvgDocument& document) {
  const auto count = static_cast<double>(document.pages.size());
  const std::string width = pdfNumber(document.page.width);
  const std::string height = pdfNumber(count * (document.page.height + kPageGap) - kPageGap);
  return fmt::format(
      "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"{0}pt\" height=\"{1}pt\" "
      "viewBox=\"0 0 {0} {1}\">\n<title>{2}</title>\n",
      width, height, htmlText(icu::UnicodeString::fromUTF8(shown(document.title))));
}

}  // namespace

SvgFont svgFont(const fs::FS_FontInfo& font, const UsedGlyphs& used, std::size_t index) {
  SvgFont out;
  out.unitsPerEm = std::max(1, font.getUnitsPerEm());
  fs::FS_GlyphDrawInfo glyph;
  for (const auto& [gid, drawn] : programGlyphs(font, used)) {
    if (!font.getGlyphDrawInfo(drawn, glyph, false)) throw notDrawn(font, drawn);
    if (glyph.contours.empty()) continue;
    out.drawn.push_back(gid);
    out.definitions += fmt::format("<path id=\"f{}g{}\" fill-rule=\"{}\" d=\"{}\"/>\n", index, gid,
                                   svgFillRule(glyph), svgPath(glyph));
  }
  return out;
}

std::string svgPage(const Page& page, const PageSize& sheet, const std::vector<UsedGlyphs>& used,
                    const std::vector<SvgFont>& fonts) {
  std::string text;
  for (const Rule& rule : page.rules) text += rectangle(rule, sheet.height);
  for (const PlacedLine& line : page.lines) {
    double pen = 0;
    if (line.grey != 0) text += fmt::format("<g fill=\"{}\">\n", cssGrey(line.grey));
    for (const Glyph& glyph : line.glyphs) {
      const std::size_t index = indexOf(used, glyph);
      const std::vector<unsigned short>& drawn = fonts[index].drawn;
      if (std::binary_search(drawn.begin(), drawn.end(), glyph.gid))
        text += useOf(line, glyph, pen, sheet.height, index, fonts[index].unitsPerEm);
      pen += glyph.advance;
    }
    if (line.grey != 0) text += "</g>\n";
  }
  return text;
}

std::string svgBytes(const SvgDocument& document) {
  std::string text = head(document) + "<defs>\n";
  for (const SvgFont& font : document.fonts) text += font.definitions;
  text += "</defs>\n";
  for (std::size_t i = 0; i < document.pages.size(); ++i) {
    const double top = static_cast<double>(i) * (document.page.height + kPageGap);
    text += fmt::format("<g transform=\"translate(0 {})\">\n", pdfNumber(top));
    text += sheet(document.page) + document.pages[i] + "</g>\n";
  }
  return text + "</svg>\n";
}

}  // namespace qxfont
