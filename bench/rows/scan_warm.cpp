// Opening the service over a folder whose files are in memory, beside fontconfig's scan of each
// file and a lister on FreeType. Opening does more than they do: it lists the folder, reads a
// configuration and enters all names in its tables. Each side also gives back what it made.

#include "harness/alternate.h"
#include "harness/bench.h"
#include "harness/listed_faces.h"
#include "harness/opened_service.h"
#include "peers/fontconfig_peer.h"
#include "peers/free_type_scan.h"
#include "peers/same_fonts.h"

namespace qxbench {
namespace {

constexpr double kNano = 1e9;

struct Musts {
  double fontconfigMust, fontconfigAim, freeTypeMust, freeTypeAim;
};

/// Why the scans do not find the same; empty when they do.
std::string difference(const Bench& bench, const FontSets::Set& set) {
  const OpenedService service(set.folder, bench.fonts().scratch());
  if (!service) return "the service does not open";
  const Fontconfig<FcFontSet> fontconfig = scanWithFontconfig(set.files);
  if (std::string why = differenceTo(*fontconfig); !why.empty()) return why;
  const std::size_t ours = listedFaces().size();
  const std::size_t freeType = scanWithFreeType(set.files);
  if (ours == freeType) return {};
  return std::to_string(ours) + " faces beside " + std::to_string(freeType) + " of FreeType";
}

std::vector<double> timesOf(const Bench& bench, const FontSets::Set& set) {
  const std::string scratch = bench.fonts().scratch();
  const Work ours{[&] { keep(openService(set.folder, scratch) ? 1U : 0U); }, {}};
  const Work fontconfig{[&] { scanWithFontconfig(set.files); }, {}};
  const Work freeType{[&] { keep(scanWithFreeType(set.files)); }, {}};
  std::vector<double> times = alternate(bench.settings(), {ours, fontconfig, freeType});
  closeService();
  for (double& time : times) time *= kNano / static_cast<double>(set.files.size());
  return times;
}

void compare(Bench& bench, const std::string& name, const FontSets::Set& set, const Musts& musts) {
  if (const std::string why = difference(bench, set); !why.empty()) {
    bench.notComparable(name, why);
    return;
  }
  const std::vector<double> times = timesOf(bench, set);
  bench.add({name, "fontconfig", "ns a file", Goal::atLeast, musts.fontconfigMust,
             musts.fontconfigAim, times[0], times[1]});
  bench.add({name, "FreeType", "ns a file", Goal::atLeast, musts.freeTypeMust, musts.freeTypeAim,
             times[0], times[2]});
}

std::string countOf(const FontSets::Set& set) {
  return std::to_string(set.files.size());
}

void scanMany(Bench& bench) {
  const FontSets::Set set = bench.fonts().every(1);
  compare(bench, "scan, warm, " + countOf(set) + " fonts", set, {5, 8, 1.5, 2.5});
}

void scanCjk(Bench& bench) {
  const FontSets::Set set = bench.fonts().cjk();
  if (set.files.empty()) {
    bench.leaveOut("scan, warm, CJK files", "./dev setup bench fetches the fonts");
    return;
  }
  compare(bench, "scan, warm, " + countOf(set) + " CJK files", set, {40, 80, 4, 8});
}

/// Time a file must not grow with the number of files: three sizes, taking turns.
void growth(Bench& bench) {
  const std::string scratch = bench.fonts().scratch();
  std::vector<FontSets::Set> sets;
  std::vector<Work> works;
  for (const std::size_t step : {18U, 4U, 1U}) sets.push_back(bench.fonts().every(step));
  for (const FontSets::Set& set : sets)
    works.push_back({[&set, &scratch] { openService(set.folder, scratch); }, {}});
  const std::vector<double> times = alternate(bench.settings(), works);
  closeService();
  const auto each = [&](std::size_t i) {
    return times[i] / static_cast<double>(sets[i].files.size());
  };
  for (const std::size_t i : {1U, 2U}) {
    bench.add(Growth{"scan time a file, " + countOf(sets[i]) + " fonts beside " + countOf(sets[0]),
                     each(i) / each(0), 1.5});
  }
}

const Row kMany{"1", "scan, warm", scanMany};
const Row kCjk{"2", "scan, warm, CJK files", scanCjk};
const Row kGrowth{"1", "scan, growth", growth};

}  // namespace
}  // namespace qxbench
