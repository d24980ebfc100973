#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <filesystem>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "qxfont/cli/font_style.h"
#include "qxfont/cli/input_file.h"
#include "qxfont/cli/options.h"
#include "qxfont/cli/output.h"
#include "qxfont/cli/output_file.h"
#include "qxfont/cli/progress.h"
#include "qxfont/cli/service.h"
#include "qxfont/cli/source_date.h"
#include "qxfont/cli/status.h"
#include "qxfont/cli/text.h"
#include "qxfont/commands/commands.h"
#include "qxfont/embed/rights.h"
#include "qxfont/html/html_document.h"
#include "qxfont/html/html_page.h"
#include "qxfont/html/web_font.h"
#include "qxfont/pdf/embedded_font.h"
#include "qxfont/pdf/page_content.h"
#include "qxfont/pdf/pdf_document.h"
#include "qxfont/postscript/ps_document.h"
#include "qxfont/svg/svg_document.h"
#include "qxfont/typeset/page.h"
#include "qxfont/typeset/page_size.h"
#include "qxfont/typeset/shaper.h"
#include "qxfont/typeset/source_text.h"
#include "qxfont/typeset/used_glyphs.h"

namespace qxfont {
namespace {

constexpr const char* kProducer = "qxfont " QXFONT_VERSION;

struct TypesetOptions {
  SourceOptions source;
  OutputOptions output;
  std::string file;
  std::vector<std::string> fonts;
  double size = 12;
  std::string page = "A4";
  std::string out;
  bool allowRestricted = false;
};

/// What the command line and the text ask for, before any font is looked at.
struct Request {
  std::string title;
  PageSize page;
  std::vector<FontStyle> styles;
  std::vector<Paragraph> paragraphs;
  std::string date;
};

enum class Kind { pdf, postScript, html, svg };

Kind kindOf(const std::string& out) {
  const std::string extension = std::filesystem::path(out).extension();
  if (extension == ".pdf") return Kind::pdf;
  if (extension == ".ps") return Kind::postScript;
  if (extension == ".html") return Kind::html;
  if (extension == ".svg") return Kind::svg;
  throw ToolError(
      Status::wrongCall,
      "typeset writes PDF, PostScript, HTML and SVG, and this is no .pdf, .ps, .html or .svg: " +
          out);
}

Request readRequest(const TypesetOptions& options) {
  kindOf(options.out);
  if (!isSize(options.size)) {
    throw ToolError(Status::wrongCall,
                    fmt::format("the size {} is not from 1 to 1000 points", options.size));
  }
  Request request;
  request.title = std::filesystem::path(options.file).stem();
  request.page = pageSizeOf(options.page);
  for (const std::string& font : options.fonts) request.styles.push_back(parseFontStyle(font));
  request.paragraphs = readSourceText(readTextFile(options.file), options.file, options.size);
  request.date = sourceDate();
  return request;
}

/// Opens the face of each paragraph; an error tells the line that asks for it.
std::vector<std::size_t> facesOf(const Request& request, const std::string& file, FontSet& fonts) {
  for (const FontStyle& style : request.styles) fonts.lend(fonts.faceOf(style));
  std::vector<std::size_t> faces;
  for (const Paragraph& paragraph : request.paragraphs) {
    try {
      faces.push_back(fonts.faceOf(paragraph.style.value_or(request.styles.front())));
    } catch (const ToolError& error) {
      throw ToolError(error.status(), fmt::format("{}:{}: {}", file, paragraph.line, error.what()),
                      error.hint());
    }
  }
  return faces;
}

void setText(const Request& request, const std::vector<std::size_t>& faces, PageBuilder& builder) {
  Progress progress("setting paragraphs");
  for (std::size_t i = 0; i < faces.size(); ++i) {
    builder.add(request.paragraphs[i], faces[i]);
    progress.show(i + 1, faces.size());
  }
}

/// The document, and what there is to be told of the fonts in it.
struct Output {
  struct Font {
    const char* form;
    std::size_t bytes;
  };
  std::string bytes;
  std::vector<Font> fonts;
};

const char* formOf(const PdfFont& font) {
  if (font.type1) return "type1";
  return font.isBareCff ? "cff" : "sfnt";
}

Output writePdf(const Request& request, const std::vector<Page>& pages,
                std::vector<UsedGlyphs>& used, const FontSet& fonts) {
  PdfDocument document;
  Output out;
  document.width = request.page.width;
  document.height = request.page.height;
  document.producer = kProducer;
  document.date = request.date;
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

Output writePostScript(const Request& request, const std::vector<Page>& pages,
                       std::vector<UsedGlyphs>& used, const FontSet& fonts) {
  PsDocument document;
  Output out;
  document.width = request.page.width;
  document.height = request.page.height;
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

Output writeHtml(const Request& request, const std::vector<Page>& pages,
                 std::vector<UsedGlyphs>& used, const FontSet& fonts) {
  HtmlDocument document;
  Output out;
  document.title = request.title;
  document.generator = kProducer;
  document.width = request.page.width;
  document.height = request.page.height;
  for (const UsedGlyphs& one : used) {
    document.webFonts.push_back(webFontOf(fonts, one, pages));
    out.fonts.push_back({"woff", document.webFonts.back().size()});
  }
  for (const Page& page : pages) document.pages.push_back(htmlPage(page, request.page, used));
  out.bytes = htmlBytes(document);
  return out;
}

Output writeSvg(const Request& request, const std::vector<Page>& pages,
                std::vector<UsedGlyphs>& used, const FontSet& fonts) {
  SvgDocument document;
  Output out;
  document.title = request.title;
  document.page = request.page;
  for (const UsedGlyphs& one : used) {
    document.fonts.push_back(svgFont(fonts.font(one.face), one, document.fonts.size()));
    out.fonts.push_back({"outlines", document.fonts.back().definitions.size()});
  }
  for (const Page& page : pages)
    document.pages.push_back(svgPage(page, request.page, used, document.fonts));
  out.bytes = svgBytes(document);
  return out;
}

using Writer = Output (*)(const Request&, const std::vector<Page>&, std::vector<UsedGlyphs>&,
                          const FontSet&);

Writer writerOf(Kind kind) {
  switch (kind) {
    case Kind::html:
      return writeHtml;
    case Kind::postScript:
      return writePostScript;
    case Kind::svg:
      return writeSvg;
    default:
      return writePdf;
  }
}

Json fontJson(const fs::FS_FontInfo& font, const UsedGlyphs& used, const Output::Font& written) {
  Json json;
  json["family"] = utf8(font.getFamilyNameEx());
  json["postscript_name"] = utf8(font.getPostScriptName(fs::QXLang::LANGID_DEFAULT));
  json["file"] = utf8(font.getFontFileName().getLocalPath(true));
  json["form"] = written.form;
  json["glyphs"] = used.texts.size();
  json["bytes"] = written.bytes;
  return json;
}

Json summaryOf(const PageBuilder& builder, const std::vector<UsedGlyphs>& used,
               const FontSet& fonts, const Output& output) {
  Json json;
  json["pages"] = builder.pages().size();
  json["fonts"] = Json::array();
  for (std::size_t i = 0; i < used.size(); ++i) {
    json["fonts"].push_back(fontJson(fonts.font(used[i].face), used[i], output.fonts[i]));
  }
  json["missing"] = Json::array();
  for (const int codePoint : builder.missing()) json["missing"].push_back(codePointName(codePoint));
  return json;
}

void printText(const std::string& out, const Json& summary) {
  const auto pages = summary["pages"].get<int>();
  fmt::print("{}: {} {}\n", shown(out), pages, pages == 1 ? "page" : "pages");
  TextTable table({"font", "glyphs", "bytes", "file"});
  for (const Json& font : summary["fonts"]) {
    const Json& name = font["postscript_name"];
    table.add({name == "" ? font["family"] : name, font["glyphs"].dump(), font["bytes"].dump(),
               font["file"]});
  }
  table.print();
}

void tellMissing(const std::set<int>& missing) {
  if (missing.empty()) return;
  std::vector<std::string> names;
  for (const int codePoint : missing) names.push_back(codePointName(codePoint));
  fmt::print(stderr, "qxfont: no font has {}\n", fmt::join(names, ", "));
  fmt::print(stderr, "hint: a further --font lends what the others lack\n");
}

/// What the document has a font for: each face, of a Type 1 face each page of codes.
std::vector<UsedGlyphs> byFonts(const std::vector<UsedGlyphs>& faces, const FontSet& fonts) {
  std::vector<UsedGlyphs> all;
  for (const UsedGlyphs& face : faces) {
    if (!fonts.font(face.face).isType1Font()) {
      all.push_back(face);
      continue;
    }
    const std::vector<UsedGlyphs> pages = splitByCodePage(face);
    all.insert(all.end(), pages.begin(), pages.end());
  }
  return all;
}

void typeset(const TypesetOptions& options) {
  const Request request = readRequest(options);
  Service service(options.source);
  FontSet fonts(service);
  const std::vector<std::size_t> faces = facesOf(request, options.file, fonts);

  const Shaper shaper(fonts);
  PageBuilder builder(request.page, fonts, shaper);
  setText(request, faces, builder);

  std::vector<UsedGlyphs> used = byFonts(usedGlyphs(builder.pages()), fonts);
  for (const UsedGlyphs& one : used) {
    if (!options.allowRestricted) requireRights(fonts.font(one.face), true);
  }
  const Output output = writerOf(kindOf(options.out))(request, builder.pages(), used, fonts);
  const Json summary = summaryOf(builder, used, fonts, output);
  OutputFiles files;
  files.add(options.out, output.bytes);
  tellMissing(builder.missing());
  if (options.output.json) {
    printJson(summary);
  } else {
    printText(options.out, summary);
  }
  flushOutput();
  files.commit();
}

}  // namespace

void addTypesetCommand(CLI::App& app, Chosen& chosen) {
  auto options = std::make_shared<TypesetOptions>();
  CLI::App* command =
      app.add_subcommand("typeset", "Sets a UTF-8 text as PDF, PostScript, HTML or SVG");
  command
      ->add_option("FILE", options->file, "the text; a line \"#font STYLE [SIZE]\" changes fonts")
      ->required();
  command
      ->add_option("--font", options->fonts,
                   "FONT[:WEIGHT][:italic]; the first sets the text, the others what it lacks")
      ->type_name("STYLE")
      ->allow_extra_args(false)
      ->required();
  command->add_option("--size", options->size, "points (12)");
  command->add_option("--page", options->page, "one of " + pageSizeNames());
  command->add_option("-o,--output", options->out, "the .pdf, .ps, .html or .svg file to write")
      ->type_name("FILE")
      ->required();
  command->add_flag("--allow-restricted", options->allowRestricted,
                    "goes on where a font's licence says no");
  addJsonOption(*command, options->output);
  addSourceOptions(*command, options->source);
  command->callback([options, &chosen] { chosen = [options] { typeset(*options); }; });
}

}  // namespace qxfont
