#include "qxfont/html/html_document.h"

#include <fmt/format.h>
#include <unicode/unistr.h>

#include "qxfont/html/base64.h"
#include "qxfont/html/html_page.h"
#include "qxfont/html/html_text.h"
#include "qxfont/pdf/pdf_number.h"

namespace qxfont {
namespace {

/// Advances are those of the font, in fractions, as the lines were set. What weight and slant a
/// face has is in its outlines: none is made up.
constexpr const char* kStyle =
    "body{margin:0;background:#ddd}\n"
    ".line{position:absolute;white-space:pre;font-family:f0;line-height:1;font-weight:normal;"
    "font-style:normal;font-synthesis:none;text-rendering:geometricPrecision}\n"
    ".rule{position:absolute;print-color-adjust:exact}\n"
    ".bidi{unicode-bidi:bidi-override}\n"
    ".missing{display:inline-block;position:relative;color:transparent;white-space:pre}\n"
    ".missing::before{content:\"\";position:absolute;left:.08em;right:.08em;top:.1em;"
    "bottom:.2em;border:.04em solid #000}\n"
    "@media print{body{background:none}.page{margin:0;break-after:page}}\n";

/// A face under a name of its own: one style, with the ascent at which lines are placed.
std::string fontFace(const std::string& webFont, std::size_t index) {
  constexpr double kPercent = 100;
  return fmt::format(
      "@font-face{{font-family:f{0};ascent-override:{1}%;descent-override:{2}%;"
      "line-gap-override:0%;"
      "src:url(data:font/woff;base64,{3}) format(\"woff\")}}\n.f{0}{{font-family:f{0}}}\n",
      index, pdfNumber(kPercent * kHtmlAscent), pdfNumber(kPercent * (1 - kHtmlAscent)),
      base64(webFont));
}

std::string pageStyle(const HtmlDocument& document) {
  const std::string size =
      fmt::format("{}pt {}pt", pdfNumber(document.width), pdfNumber(document.height));
  return fmt::format(
      "@page{{size:{0};margin:0}}\n"
      ".page{{position:relative;width:{1}pt;height:{2}pt;margin:12pt auto;background:#fff;"
      "color:#000;overflow:hidden}}\n",
      size, pdfNumber(document.width), pdfNumber(document.height));
}

std::string head(const HtmlDocument& document) {
  std::string text = "<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n";
  text += fmt::format("<meta name=\"generator\" content=\"{}\">\n",
                      htmlText(icu::UnicodeString::fromUTF8(document.generator)));
  text += fmt::format("<title>{}</title>\n<style>\n",
                      htmlText(icu::UnicodeString::fromUTF8(document.title)));
  text += kStyle + pageStyle(document);
  for (std::size_t i = 0; i < document.webFonts.size(); ++i)
    text += fontFace(document.webFonts[i], i);
  return text + "</style>\n</head>\n";
}

}  // namespace

std::string htmlBytes(const HtmlDocument& document) {
  std::string text = head(document) + "<body>\n";
  for (const std::string& page : document.pages)
    text += "<section class=\"page\">\n" + page + "</section>\n";
  return text + "</body>\n</html>\n";
}

}  // namespace qxfont
