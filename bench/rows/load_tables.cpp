// Loading what queries need, beside a floor by the bytes of the tables: 10 ns a byte and 100 us;
// and what it holds, beside the tables' own size.

#include <map>

#include "harness/alternate.h"
#include "harness/bench.h"
#include "harness/heap.h"
#include "harness/read_font.h"
#include "harness/sfnt_file.h"

namespace qxbench {
namespace {

constexpr const char* kFonts[] = {"DejaVuSans.ttf",    "NotoSans-Regular.ttf",
                                  "Amiri-Regular.ttf", "NotoNastaliqUrdu-Regular.ttf",
                                  "ipag.ttf",          "ipam.ttf"};

double bytesOf(const std::string& font, std::initializer_list<const char*> tags) {
  double bytes = 0;
  for (const char* tag : tags) bytes += static_cast<double>(tableOf(font, tag).size());
  return bytes;
}

void compareTime(Bench& bench, const std::string& file, const std::string& path) {
  const double bytes = bytesOf(
      contentOf(path), {"cmap", "hmtx", "kern", "GDEF", "GSUB", "GPOS", "maxp", "mort", "CFF "});
  QXCommonNS::QXPtr<QXFontService_NS::FS_BaseFont> font;
  const Work load{[&] { keep(loadTables(*font.get()) ? 1U : 0U); }, [&] { font = readFont(path); }};
  const double time = alternate(bench.settings(), {load}).front() * 1e9;
  bench.add({"loadFontTables, " + file, "10 ns a byte + 100 us", "ns a font", Goal::atMost, 1, 0.5,
             time, 10 * bytes + 100e3});
}

void run(Bench& bench) {
  for (const char* file : kFonts) {
    const std::string path = bench.fonts().file(file);
    if (path.empty()) {
      bench.leaveOut(std::string("loadFontTables, ") + file, "the font is not here");
    } else {
      compareTime(bench, file, path);
    }
  }
}

void compareMemory(Bench& bench, const std::string& file, const std::string& path) {
  double budget = 0;
  {
    const std::string bytes = contentOf(path);
    budget = 1.5 * bytesOf(bytes, {"cmap", "hmtx", "kern"}) +
             8 * bytesOf(bytes, {"GSUB", "GPOS", "GDEF"}) + 64 * 1024;
  }
  const auto font = readFont(path);
  const double before = heapBytes();
  if (!loadTables(*font.get())) return;
  bench.add({"memory of a loaded face, " + file, "1.5 cmap.. + 8 GSUB.. + 64 KB", "bytes",
             Goal::atMost, 1, 0, heapBytes() - before, budget});
}

void runMemory(Bench& bench) {
  for (const char* file : kFonts) {
    const std::string path = bench.fonts().file(file);
    if (!path.empty()) compareMemory(bench, file, path);
  }
}

const Row kRow{"14", "loadFontTables", run};
const Row kMemoryRow{"23", "memory of a loaded face", runMemory};

}  // namespace
}  // namespace qxbench
