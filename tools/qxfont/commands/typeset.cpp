#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "qxfont/cli/font_style.h"
#include "qxfont/cli/input_file.h"
#include "qxfont/cli/options.h"
#include "qxfont/cli/progress.h"
#include "qxfont/cli/service.h"
#include "qxfont/cli/source_date.h"
#include "qxfont/cli/status.h"
#include "qxfont/commands/commands.h"
#include "qxfont/document/delivery.h"
#include "qxfont/typeset/page.h"
#include "qxfont/typeset/page_size.h"
#include "qxfont/typeset/shaper.h"
#include "qxfont/typeset/source_text.h"

namespace qxfont {
namespace {

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
  Delivery delivery;
  std::vector<FontStyle> styles;
  std::vector<Paragraph> paragraphs;
};

DocumentKind kindOf(const std::string& out) {
  DocumentKind kind = DocumentKind::pdf;
  if (documentKindOf(out, kind)) return kind;
  throw ToolError(
      Status::wrongCall,
      "typeset writes PDF, PostScript, HTML and SVG, and this is no .pdf, .ps, .html or .svg: " +
          out);
}

Request readRequest(const TypesetOptions& options) {
  Request request;
  Delivery& delivery = request.delivery;
  delivery.out = options.out;
  delivery.kind = kindOf(options.out);
  delivery.allowRestricted = options.allowRestricted;
  delivery.json = options.output.json;
  delivery.missingHint = "a further --font lends what the others lack";
  if (!isSize(options.size)) {
    throw ToolError(Status::wrongCall,
                    fmt::format("the size {} is not from 1 to 1000 points", options.size));
  }
  delivery.frame.title = std::filesystem::path(options.file).stem();
  delivery.frame.page = pageSizeOf(options.page);
  for (const std::string& font : options.fonts) request.styles.push_back(parseFontStyle(font));
  request.paragraphs = readSourceText(readTextFile(options.file), options.file, options.size);
  delivery.frame.date = sourceDate();
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

void typeset(const TypesetOptions& options) {
  const Request request = readRequest(options);
  Service service(options.source);
  FontSet fonts(service);
  const std::vector<std::size_t> faces = facesOf(request, options.file, fonts);

  const Shaper shaper(fonts);
  PageBuilder builder(request.delivery.frame.page, fonts, shaper);
  setText(request, faces, builder);

  deliver(request.delivery, builder.pages(), fonts, builder.missing());
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
  addRestrictedOption(*command, options->allowRestricted);
  addJsonOption(*command, options->output);
  addSourceOptions(*command, options->source);
  command->callback([options, &chosen] { chosen = [options] { typeset(*options); }; });
}

}  // namespace qxfont
