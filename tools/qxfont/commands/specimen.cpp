#include "qxfont/specimen/specimen.h"

#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

#include "qxfont/cli/open_font.h"
#include "qxfont/cli/options.h"
#include "qxfont/cli/service.h"
#include "qxfont/cli/source_date.h"
#include "qxfont/cli/status.h"
#include "qxfont/commands/commands.h"
#include "qxfont/document/delivery.h"
#include "qxfont/document/document_writer.h"
#include "qxfont/typeset/font_set.h"
#include "qxfont/typeset/page_size.h"

namespace qxfont {
namespace {

struct SpecimenOptions {
  SourceOptions source;
  OutputOptions output;
  std::vector<std::string> fonts;
  FontOptions style;
  std::string out;
  bool allowRestricted = false;
};

DocumentKind kindOf(const std::string& out) {
  DocumentKind kind = DocumentKind::pdf;
  if (documentKindOf(out, kind) && kind != DocumentKind::postScript) return kind;
  throw ToolError(Status::wrongCall,
                  "specimen writes PDF, HTML and SVG, and this is no .pdf, .html or .svg: " + out);
}

SpecimenRequest requestOf(const SpecimenOptions& options) {
  SpecimenRequest request;
  request.kind = kindOf(options.out);
  request.page = pageSizeOf("A4");
  request.allowRestricted = options.allowRestricted;
  for (const std::string& font : options.fonts) {
    request.asked.push_back(options.style);
    request.asked.back().font = font;
    checkFontOptions(request.asked.back());
  }
  return request;
}

Delivery deliveryOf(const SpecimenOptions& options, const SpecimenRequest& request) {
  Delivery delivery;
  delivery.out = options.out;
  delivery.kind = request.kind;
  delivery.frame.title = options.fonts.front();
  delivery.frame.page = request.page;
  delivery.frame.date = sourceDate();
  delivery.allowRestricted = options.allowRestricted;
  delivery.json = options.output.json;
  delivery.missingHint = "a font with Latin letters, which --add DIR adds, would set the labels";
  return delivery;
}

void specimen(const SpecimenOptions& options) {
  const SpecimenRequest request = requestOf(options);
  const Delivery delivery = deliveryOf(options, request);
  Service service(options.source);
  FontSet fonts(service);
  const Specimen set = setSpecimen(request, service, fonts);
  deliver(delivery, set.pages, fonts, set.missing);
}

}  // namespace

void addSpecimenCommand(CLI::App& app, Chosen& chosen) {
  auto options = std::make_shared<SpecimenOptions>();
  CLI::App* command =
      app.add_subcommand("specimen", "A sheet that shows fonts, as PDF, HTML or SVG");
  command
      ->add_option("FONT", options->fonts,
                   "family, full, PostScript or file names, or paths of font files")
      ->required();
  addStyleOptions(*command, options->style);
  command->add_option("-o,--output", options->out, "the .pdf, .html or .svg file to write")
      ->type_name("FILE")
      ->required();
  addRestrictedOption(*command, options->allowRestricted);
  addJsonOption(*command, options->output);
  addSourceOptions(*command, options->source);
  command->callback([options, &chosen] { chosen = [options] { specimen(*options); }; });
}

}  // namespace qxfont
