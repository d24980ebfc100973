#include "qxfont/postscript/ps_document.h"

#include <fmt/format.h>

#include <cmath>

#include "qxfont/pdf/pdf_number.h"

namespace qxfont {
namespace {

const char* kindOf(const PsFont& font) {
  return font.encoding ? "font" : "CIDFont";
}

std::string header(const PsDocument& document) {
  std::string text = "%!PS-Adobe-3.0\n";
  text += fmt::format("%%Creator: {}\n%%LanguageLevel: 3\n", document.creator);
  text += fmt::format("%%BoundingBox: 0 0 {} {}\n", std::ceil(document.width),
                      std::ceil(document.height));
  text += fmt::format("%%Pages: {}\n", document.pages.size());
  for (std::size_t i = 0; i < document.fonts.size(); ++i) {
    text += fmt::format("{} {} {}\n", i == 0 ? "%%DocumentSuppliedResources:" : "%%+",
                        kindOf(document.fonts[i]), document.fonts[i].name);
  }
  return text + "%%EndComments\n";
}

/// The font, and under its short name a copy with the encoding of its page. The font itself goes
/// again, since another page may define one of its name.
std::string type1Resource(const PsFont& font, std::size_t index) {
  std::string encoding;
  for (const auto& [code, name] : *font.encoding)
    encoding += fmt::format("dup {} /{} put\n", code, name);
  return fmt::format(
      "%%BeginResource: font {0}\n{1}%%EndResource\n"
      "/{0} findfont dup length dict begin\n"
      "{{1 index /FID eq {{pop pop}} {{def}} ifelse}} forall\n"
      "/Encoding 256 array 0 1 255 {{1 index exch /.notdef put}} for\n{2}def\n"
      "/F{3} currentdict end definefont pop\n/{0} undefinefont\n",
      font.name, font.resource, encoding, index);
}

/// The font, and under its short name the one that shows CIDs as two bytes each.
std::string resource(const PsFont& font, std::size_t index) {
  if (font.encoding) return type1Resource(font, index);
  const std::string scaling = font.scale == 1 ? "pop"
                                              : fmt::format("{} scalefont /F{} exch definefont pop",
                                                            pdfNumber(font.scale), index);
  return fmt::format(
      "%%BeginResource: CIDFont {0}\n{1}%%EndResource\n"
      "/F{2} /Identity-H [/{0}] composefont {3}\n",
      font.name, font.resource, index, scaling);
}

std::string setup(const PsDocument& document) {
  std::string text = "%%BeginProlog\n%%EndProlog\n%%BeginSetup\n";
  for (std::size_t i = 0; i < document.fonts.size(); ++i) text += resource(document.fonts[i], i);
  text += fmt::format("<< /PageSize [{} {}] >> setpagedevice\n", pdfNumber(document.width),
                      pdfNumber(document.height));
  return text + "%%EndSetup\n";
}

}  // namespace

std::string psBytes(const PsDocument& document) {
  std::string text = header(document) + setup(document);
  for (std::size_t i = 0; i < document.pages.size(); ++i)
    text += fmt::format("%%Page: {0} {0}\n{1}showpage\n", i + 1, document.pages[i]);
  return text + "%%Trailer\n%%EOF\n";
}

}  // namespace qxfont
