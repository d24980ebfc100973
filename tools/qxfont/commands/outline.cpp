#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <charconv>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "qxfontservice/ext/inspect.h"
#include "qxfontservice/glyph_draw_info.h"

#include "qxfont/cli/open_font.h"
#include "qxfont/cli/options.h"
#include "qxfont/cli/output.h"
#include "qxfont/cli/output_file.h"
#include "qxfont/cli/service.h"
#include "qxfont/cli/text.h"
#include "qxfont/commands/commands.h"
#include "qxfont/svg/glyph_path.h"

namespace qxfont {
namespace {

using fs::FS_GlyphDrawInfo;

constexpr int kNoGlyph = fs::FS_NO_GLYPH;

struct OutlineOptions {
  SourceOptions source;
  FontOptions font;
  OutputOptions output;
  std::string glyph;
  std::string out;
  bool all = false;
  int every = 1;
};

/// What the GLYPH argument names.
struct GlyphRequest {
  int number = 0;
  bool isCharacter = false;
};

std::optional<int> numberOf(std::string_view digits, int base) {
  int value = 0;
  const char* end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, value, base);
  if (error != std::errc() || stop != end || value < 0) return std::nullopt;
  return value;
}

GlyphRequest parseGlyph(const std::string& text) {
  constexpr int kHex = 16;
  constexpr int kDecimal = 10;
  constexpr int kLastCodePoint = 0x10FFFF;
  const bool isCharacter = text.compare(0, 2, "U+") == 0 || text.compare(0, 2, "u+") == 0;
  const std::optional<int> number =
      isCharacter ? numberOf(std::string_view(text).substr(2), kHex) : numberOf(text, kDecimal);
  if (!number || (isCharacter && *number > kLastCodePoint))
    throw ToolError(Status::wrongCall, "no glyph id and no character: " + shown(text),
                    "a glyph is a number, as 36, or a character, as U+0041");
  return {*number, isCharacter};
}

/// Looks at the command line alone.
void checkOptions(const OutlineOptions& options) {
  checkFontOptions(options.font);
  if (options.all != options.glyph.empty())
    throw ToolError(Status::wrongCall, "outline takes one GLYPH, or --all");
  if (options.every < 1) throw ToolError(Status::wrongCall, "--every takes a number from 1");
  if (options.all && !options.out.empty())
    throw ToolError(Status::wrongCall, "-o writes one glyph, not all");
  if (!options.out.empty() && std::filesystem::path(options.out).extension() != ".svg")
    throw ToolError(Status::wrongCall, "outline writes SVG, and this is no .svg: " + options.out);
}

std::string nameOf(const fs::FS_FontInfo& font) {
  return shown(font.getFontFileName().getLocalPath(true));
}

/// @throws ToolError `noMatch` for a character or a glyph that the font does not have.
unsigned short glyphOf(const fs::FS_FontInfo& font, const GlyphRequest& request) {
  const auto count = static_cast<int>(fs::ext::glyphCount(font));
  const int last = count > 0 ? count - 1 : kNoGlyph - 1;
  const int gid = request.isCharacter ? font.getGlyphID(request.number, false) : request.number;
  if (gid <= last) return static_cast<unsigned short>(gid);
  const std::string wanted =
      request.isCharacter ? codePointName(request.number) : fmt::format("glyph {}", request.number);
  throw ToolError(Status::noMatch, fmt::format("{} has no {}", nameOf(font), wanted),
                  count > 0 ? fmt::format("its glyphs are 0 to {}", last) : std::string());
}

FS_GlyphDrawInfo draw(const fs::FS_FontInfo& font, unsigned short gid) {
  FS_GlyphDrawInfo glyph;
  if (!font.isGlyphDrawInfoAvialable())
    throw ToolError(Status::badFont, nameOf(font) + " has no outlines that can be drawn");
  if (!font.getGlyphDrawInfo(gid, glyph, false))
    throw ToolError(Status::badFont,
                    fmt::format("glyph {} of {} cannot be drawn", gid, nameOf(font)));
  return glyph;
}

Json outlineJson(const FS_GlyphDrawInfo& glyph) {
  Json json;
  json["advance"] = glyph.horiAdvance;
  if (!glyph.contours.empty()) {
    for (const float bound : glyph.bounds) json["bounds"].push_back(number(bound));
  }
  json["contours"] = contoursJson(glyph);
  return json;
}

/// What a record has beyond the path.
Json metricsJson(const FS_GlyphDrawInfo& glyph) {
  Json json;
  json["width"] = glyph.width;
  json["height"] = glyph.height;
  json["hori_bearing_x"] = glyph.horiBearingX;
  json["hori_bearing_y"] = glyph.horiBearingY;
  json["vert_bearing_x"] = glyph.vertBearingX;
  json["vert_bearing_y"] = glyph.vertBearingY;
  json["vert_advance"] = glyph.vertAdvance;
  json["face_bounds"] = {glyph.xMin, glyph.yMin, glyph.xMax, glyph.yMax};
  json["even_odd"] = glyph.evenOddFill;
  return json;
}

void printOutline(const FS_GlyphDrawInfo& glyph) {
  TextTable table({"metric", "font units"});
  table.add({"advance", fmt::format("{}", glyph.horiAdvance)});
  table.add({"vertical advance", fmt::format("{}", glyph.vertAdvance)});
  table.add({"size", fmt::format("{} x {}", glyph.width, glyph.height)});
  table.add({"bearing", fmt::format("{}, {}", glyph.horiBearingX, glyph.horiBearingY)});
  if (!glyph.contours.empty())
    table.add({"bounds", fmt::format("{}, {}, {}, {}", glyph.bounds[0], glyph.bounds[1],
                                     glyph.bounds[2], glyph.bounds[3])});
  table.add({"contours", fmt::format("{}", glyph.contours.size())});
  table.print();
  const std::string path = svgPath(glyph);
  if (!path.empty()) fmt::print("{}\n", path);
}

/// Each glyph with its id, and without a path where it cannot be drawn. A font that does not tell
/// its glyph count ends before the first that cannot.
void printAll(const fs::FS_FontInfo& font, const OutlineOptions& options) {
  const auto count = static_cast<int>(fs::ext::glyphCount(font));
  const int end = count > 0 ? std::min(count, kNoGlyph) : kNoGlyph;
  Json rows = Json::array();
  FS_GlyphDrawInfo glyph;
  for (int gid = 0; gid < end; gid += options.every) {
    const bool drawn = font.getGlyphDrawInfo(static_cast<unsigned short>(gid), glyph, false);
    if (!drawn && count == 0) break;
    Json row = {{"glyph", gid}};
    if (drawn) {
      row.update(outlineJson(glyph));
      row["metrics"] = metricsJson(glyph);
    }
    rows.push_back(row);
  }
  printRows(rows, options.output);
}

void writeGlyph(const FS_GlyphDrawInfo& glyph, const std::string& out) {
  OutputFiles files;
  files.add(out, svgGlyph(glyph));
  flushOutput();
  files.commit();
}

void outline(const OutlineOptions& options) {
  checkOptions(options);
  const GlyphRequest request = options.all ? GlyphRequest{} : parseGlyph(options.glyph);
  Service service(options.source, options.font);
  const OpenFont font = openFont(service, options.font);
  if (options.all) return printAll(*font, options);
  const FS_GlyphDrawInfo glyph = draw(*font, glyphOf(*font, request));
  if (options.output.json || options.output.ndjson) {
    printJson(outlineJson(glyph));
  } else {
    printOutline(glyph);
  }
  if (!options.out.empty()) writeGlyph(glyph, options.out);
}

}  // namespace

void addOutlineCommand(CLI::App& app, Chosen& chosen) {
  auto options = std::make_shared<OutlineOptions>();
  CLI::App* command = app.add_subcommand("outline", "Metrics and path of a glyph");
  addFontOptions(*command, options->font);
  command->add_option("GLYPH", options->glyph, "a glyph id, or a character as U+XXXX");
  command->add_option("-o,--output", options->out, "an .svg file to write")->type_name("FILE");
  command->add_flag("--all", options->all, "all glyphs, as JSON");
  command->add_option("--every", options->every, "of all glyphs each N-th (1)")->type_name("N");
  addJsonOption(*command, options->output);
  addNdjsonOption(*command, options->output);
  addSourceOptions(*command, options->source);
  command->callback([options, &chosen] { chosen = [options] { outline(*options); }; });
}

}  // namespace qxfont
