// Opening the service over files that are on the disk only, and how much of them that brings into
// memory.

#include "harness/alternate.h"
#include "harness/bench.h"
#include "harness/opened_service.h"
#include "harness/page_cache.h"
#include "peers/fontconfig_peer.h"
#include "peers/same_fonts.h"

namespace qxbench {
namespace {

constexpr double kNano = 1e9;
constexpr double kMostBytesAFile = 25.0 * 1024;

std::string nameOf(const FontSets::Set& set, const char* what) {
  return std::string(what) + ", " + std::to_string(set.files.size()) + " fonts";
}

/// Whether dropping files has any effect here: memory file systems keep them.
bool dropsFromPageCache(const FontSets::Set& set) {
  const Paths one{set.files.front()};
  dropFromPageCache(one);
  return bytesInPageCache(one) == 0;
}

void compareTimes(Bench& bench, const FontSets::Set& set) {
  const std::string scratch = bench.fonts().scratch();
  const auto drop = [&] {
    closeService();
    dropFromPageCache(set.files);
  };
  const Times times = alternate(bench.settings(), {[&] { openService(set.folder, scratch); }, drop},
                                {[&] { scanWithFontconfig(set.files); }, drop});
  closeService();
  const double files = static_cast<double>(set.files.size());
  bench.add({nameOf(set, "scan, cold"), "fontconfig", "ns a file", Goal::atLeast, 1.5, 8,
             times.ours * kNano / files, times.theirs * kNano / files});
}

void weighBytes(Bench& bench, const FontSets::Set& set) {
  dropFromPageCache(set.files);
  openService(set.folder, bench.fonts().scratch());
  const double bytes =
      static_cast<double>(bytesInPageCache(set.files)) / static_cast<double>(set.files.size());
  closeService();
  bench.add({nameOf(set, "brought in by a cold scan"), "25 KB", "bytes a file", Goal::atMost, 1, 0,
             bytes, kMostBytesAFile});
}

void run(Bench& bench) {
  const FontSets::Set set = bench.fonts().every(1);
  if (!dropsFromPageCache(set)) {
    bench.leaveOut("scan, cold", "this file system keeps files in memory");
    return;
  }
  const Fontconfig<FcFontSet> fontconfig = scanWithFontconfig(set.files);
  openService(set.folder, bench.fonts().scratch());
  if (const std::string why = differenceTo(*fontconfig); !why.empty()) {
    bench.notComparable(nameOf(set, "scan, cold"), why);
    return;
  }
  compareTimes(bench, set);
  weighBytes(bench, set);
}

const Row kRow{"3", "scan, cold", run};

}  // namespace
}  // namespace qxbench
