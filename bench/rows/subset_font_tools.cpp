// A subset from file to memory beside fontTools, which times its own call: starting Python is not
// held against it.

#include <cstdio>
#include <fstream>
#include <memory>

#include "qxcommon/mem_stream.h"
#include "qxfontservice/ext/inspect.h"

#include "harness/alternate.h"
#include "harness/bench.h"
#include "harness/glyph_draw.h"
#include "harness/opened_font.h"

namespace qxbench {
namespace {

using QXFontService_NS::FS_FontInfo;
using Glyphs = std::vector<unsigned short>;

struct CloseProgram {
  void operator()(std::FILE* program) const { ::pclose(program); }
};

/// Seconds of one call of fontTools; 0 where it is not there or fails.
double timeOfFontTools(const std::string& font, const std::string& ids) {
  const std::string command = "/usr/bin/python3 '" QX_BENCH_SOURCE
                              "/peers/font_tools_subset.py' '" +
                              font + "' < '" + ids + "' 2>/dev/null";
  const std::unique_ptr<std::FILE, CloseProgram> program(::popen(command.c_str(), "r"));
  double seconds = 0;
  if (!program || std::fscanf(program.get(), "%lf", &seconds) != 1) return 0;
  return seconds;
}

using Subset = bool (FS_FontInfo::*)(const Glyphs& glyphs, QXCommonNS::QXMemStream& out) const;

void compare(Bench& bench, const std::string& outlines, Subset subset, const std::string& file,
             std::size_t wanted) {
  const std::string name =
      "file to memory, " + outlines + ", " + std::to_string(wanted) + " ids of " + file;
  const OpenedFont font(bench.fonts(), file);
  if (!font) {
    bench.leaveOut(name, "the font is not here");
    return;
  }
  const Glyphs glyphs = drawGlyphs(QXFontService_NS::ext::glyphCount(font.info()), wanted);
  const std::string ids = bench.fonts().scratch() + "/ids.txt";
  {
    std::ofstream out(ids);
    for (const unsigned short glyph : glyphs) out << glyph << "\n";
  }
  double theirs = timeOfFontTools(font.path(), ids);
  if (theirs == 0) {
    bench.leaveOut(name, "fontTools is not here, or failed");
    return;
  }
  if (!bench.brief()) theirs = std::min(theirs, timeOfFontTools(font.path(), ids));
  const auto embed = [&] {
    QXCommonNS::QXMemStream out(nullptr, 8192, false, true);
    keep((font.info().*subset)(glyphs, out) ? 1U : 0U);
  };
  const double ours = alternate(bench.settings(), {{embed, {}}}).front();
  bench.add({name, "fontTools", "ns a subset", Goal::atLeast, 100, 300, ours * 1e9, theirs * 1e9});
}

void runGlyf(Bench& bench) {
  constexpr Subset kEmbed = &FS_FontInfo::getEmbedFont;
  compare(bench, "glyf", kEmbed, "DejaVuSans.ttf", 100);
  compare(bench, "glyf", kEmbed, "ipam.ttf", 3000);
}

void runCff(Bench& bench) {
  constexpr Subset kSubset = &FS_FontInfo::makeSubsetFont;
  compare(bench, "CFF", kSubset, "EBGaramond12-Regular.otf", 100);
  if (!bench.brief()) compare(bench, "CFF", kSubset, "NotoSansCJKjp-Regular.otf", 3000);
}

const Row kGlyfRow{"18", "subset, fontTools, glyf", runGlyf};
const Row kCffRow{"18", "subset, fontTools, CFF", runCff};

}  // namespace
}  // namespace qxbench
