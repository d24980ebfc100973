// Memory of a face that is listed and not loaded: names of all languages, style, name tables;
// beside fontconfig's pattern of the face.

#include "harness/bench.h"
#include "harness/heap.h"
#include "harness/opened_service.h"
#include "peers/fontconfig_peer.h"
#include "peers/same_fonts.h"

namespace qxbench {
namespace {

/// Opening and scanning once first: what libraries keep for themselves is nobody's face.
void warm(const FontSets::Set& set, const std::string& scratch) {
  openService(set.folder, scratch);
  closeService();
  scanWithFontconfig({set.files.front()});
}

void run(Bench& bench) {
  const std::string name = "memory of a listed face";
  const FontSets::Set set = bench.fonts().every(1);
  const std::string scratch = bench.fonts().scratch();
  warm(set, scratch);

  const double empty = heapBytes();
  const OpenedService service(set.folder, scratch);
  const double opened = heapBytes();
  const Fontconfig<FcFontSet> patterns = scanWithFontconfig(set.files);
  const double scanned = heapBytes();
  if (const std::string why = differenceTo(*patterns); !why.empty()) {
    bench.notComparable(name, why);
    return;
  }
  const double faces = static_cast<double>(patterns->nfont);
  bench.add({name, "a pattern of fontconfig", "bytes", Goal::atMost, 2, 1.3,
             (opened - empty) / faces, (scanned - opened) / faces});
}

const Row kRow{"22", "memory of a listed face", run};

}  // namespace
}  // namespace qxbench
