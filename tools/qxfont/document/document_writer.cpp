#include "qxfont/document/document_writer.h"

#include <filesystem>

#include "qxfont/html/html_document.h"
#include "qxfont/html/html_page.h"
#include "qxfont/html/web_font.h"
#include "qxfont/pdf/embedded_font.h"
#include "qxfont/pdf/page_content.h"
#include "qxfont/pdf/pdf_document.h"
#include "qxfont/postscript/ps_document.h"
#include "qxfont/svg/svg_document.h"

namespace qxfont {
namespace {

constexpr const char* kProducer = "qxfont " QXFONT_VERSION;

const char* formOf(const PdfFont& font) {
  if (font.type1) return "type1";
  return font.isBareCff ? "cff" : "sfnt";
}

WrittenDocument writePdf(const DocumentFrame& frame, const std::vector<Page>& pages,
                         std::vector<UsedGlyphs>& used, const FontSet& fonts) {
  PdfDocument document;
  WrittenDocument out;
  document.width = frame.page.width;
  document.height = frame.page.height;
  document.producer = kProducer;
  document.date = frame.date;
  for (UsedGlyphs& one : used) {
    numberForPdf(fonts.font(one.face), one);
    const PdfFont font = embeddedFont(fonts.font(one.face), one);
    out.fonts.push_back({formOf(font), font.fontFile.size()});
    document.fonts.push_back(font);
  }
  for (const Page& page : pages) document.pages.push_back(pageContent(page, used));
  out.bytes = pdfBytes(document);
  return out;
}

WrittenDocument writePostScript(const DocumentFrame& frame, const std::vector<Page>& pages,
                                std::vector<UsedGlyphs>& used, const FontSet& fonts) {
  PsDocument document;
  WrittenDocument out;
  document.width = frame.page.width;
  document.height = frame.page.height;
  document.creator = kProducer;
  for (UsedGlyphs& one : used) {
    const PsFont font = psFont(fonts.font(one.face), one);
    out.fonts.push_back({font.encoding ? "type1" : "cid-ps", font.resource.size()});
    document.fonts.push_back(font);
  }
  for (const Page& page : pages) document.pages.push_back(psPage(page, used));
  out.bytes = psBytes(document);
  return out;
}

WrittenDocument writeHtml(const DocumentFrame& frame, const std::vector<Page>& pages,
                          std::vector<UsedGlyphs>& used, const FontSet& fonts) {
  HtmlDocument document;
  WrittenDocument out;
  document.title = frame.title;
  document.generator = kProducer;
  document.width = frame.page.width;
  document.height = frame.page.height;
  for (const UsedGlyphs& one : used) {
    document.webFonts.push_back(webFontOf(fonts, one, pages));
    out.fonts.push_back({"woff", document.webFonts.back().size()});
  }
  for (const Page& page : pages) document.pages.push_back(htmlPage(page, frame.page, used));
  out.bytes = htmlBytes(document);
  return out;
}

WrittenDocument writeSvg(const DocumentFrame& frame, const std::vector<Page>& pages,
                         std::vector<UsedGlyphs>& used, const FontSet& fonts) {
  SvgDocument document;
  WrittenDocument out;
  document.title = frame.title;
  document.page = frame.page;
  for (const UsedGlyphs& one : used) {
    document.fonts.push_back(svgFont(fonts.font(one.face), one, document.fonts.size()));
    out.fonts.push_back({"outlines", document.fonts.back().definitions.size()});
  }
  for (const Page& page : pages)
    document.pages.push_back(svgPage(page, frame.page, used, document.fonts));
  out.bytes = svgBytes(document);
  return out;
}

using Writer = WrittenDocument (*)(const DocumentFrame&, const std::vector<Page>&,
                                   std::vector<UsedGlyphs>&, const FontSet&);

Writer writerOf(DocumentKind kind) {
  switch (kind) {
    case DocumentKind::html:
      return writeHtml;
    case DocumentKind::postScript:
      return writePostScript;
    case DocumentKind::svg:
      return writeSvg;
    default:
      return writePdf;
  }
}

}  // namespace

bool documentKindOf(const std::string& file, DocumentKind& kind) {
  const std::string extension = std::filesystem::path(file).extension();
  if (extension == ".pdf") {
    kind = DocumentKind::pdf;
  } else if (extension == ".ps") {
    kind = DocumentKind::postScript;
  } else if (extension == ".html") {
    kind = DocumentKind::html;
  } else if (extension == ".svg") {
    kind = DocumentKind::svg;
  } else {
    return false;
  }
  return true;
}

std::vector<UsedGlyphs> documentFonts(const std::vector<Page>& pages, const FontSet& fonts) {
  std::vector<UsedGlyphs> all;
  for (const UsedGlyphs& face : usedGlyphs(pages)) {
    if (!fonts.font(face.face).isType1Font()) {
      all.push_back(face);
      continue;
    }
    const std::vector<UsedGlyphs> split = splitByCodePage(face);
    all.insert(all.end(), split.begin(), split.end());
  }
  return all;
}

WrittenDocument writeDocument(DocumentKind kind, const DocumentFrame& frame,
                              const std::vector<Page>& pages, std::vector<UsedGlyphs>& used,
                              const FontSet& fonts) {
  WrittenDocument written = writerOf(kind)(frame, pages, used, fonts);
  written.pages = pages.size();
  return written;
}

}  // namespace qxfont
