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

void compare(Bench& bench, const std::string& file, std::size_t wanted) {
  const std::string name = "file to memory, glyf, " + std::to_string(wanted) + " ids of " + file;
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
    keep(font.info().getEmbedFont(glyphs, out) ? 1U : 0U);
  };
  const double ours = alternate(bench.settings(), {{embed, {}}}).front();
  bench.add({name, "fontTools", "ns a subset", Goal::atLeast, 100, 300, ours * 1e9, theirs * 1e9});
}

void run(Bench& bench) {
  compare(bench, "DejaVuSans.ttf", 100);
  compare(bench, "ipam.ttf", 3000);
}

const Row kRow{"18", "subset, fontTools, glyf", run};

}  // namespace
}  // namespace qxbench
