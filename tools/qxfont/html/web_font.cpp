#include "qxfont/html/web_font.h"

#include <fmt/format.h>

#include "qxfont/cli/status.h"
#include "qxfont/cli/text.h"
#include "qxfont/embed/form.h"

namespace qxfont {
namespace {

void addCharacters(const PlacedLine& line, const LineRun& run, const FontSet& fonts,
                   std::set<unsigned short>& gids) {
  for (int at = run.begin; at < run.end; at = line.text.moveIndex32(at, 1))
    gids.insert(fonts.glyphOf(run.face, line.text.char32At(at), 0));
}

std::vector<unsigned short> glyphsOf(const FontSet& fonts, const UsedGlyphs& used,
                                     const std::vector<Page>& pages) {
  const std::vector<unsigned short> set = used.gids();
  std::set<unsigned short> gids(set.begin(), set.end());
  gids.insert(0);
  for (const Page& page : pages) {
    for (const PlacedLine& line : page.lines) {
      for (const LineRun& run : line.runs)
        if (run.face == used.face) addCharacters(line, run, fonts, gids);
    }
  }
  return {gids.begin(), gids.end()};
}

}  // namespace

std::string webFontOf(const FontSet& fonts, const UsedGlyphs& used,
                      const std::vector<Page>& pages) {
  const fs::FS_FontInfo& font = fonts.font(used.face);
  const std::string file = utf8(font.getFontFileName().getLocalPath(true));
  const Form& form = formOf("woff");
  if (!hasForm(font, form, false)) {
    throw ToolError(Status::wrongCall, fmt::format("{} cannot be made a web font", file),
                    "a .pdf takes more kinds of fonts");
  }
  FormResult result;
  if (!writeForm(font, form, false, glyphsOf(fonts, used, pages), result))
    throw ToolError(Status::badFont, fmt::format("{} cannot be read whole", file));
  return std::move(result.bytes);
}

}  // namespace qxfont
