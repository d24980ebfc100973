// The first request for a weight that a family lacks: the service fills the gaps of the family,
// which it does once, fontconfig compares all fonts anew.

#include "harness/alternate.h"
#include "harness/bench.h"
#include "harness/family_request.h"
#include "harness/listed_faces.h"
#include "harness/opened_service.h"
#include "peers/fontconfig_peer.h"

namespace qxbench {
namespace {

using Requests = std::vector<FamilyRequest>;

/// Those of `all` that fontconfig answers from the family too.
Requests equalRequests(FcConfig* config, const Requests& all) {
  Requests equal;
  for (const FamilyRequest& request : all) {
    const auto pattern = matchWithFontconfig(config, request.family, request.weight);
    if (textOf(pattern.get(), FC_FAMILY) == request.family && create(request))
      equal.push_back(request);
  }
  return equal;
}

/// A new service in which every face is loaded and no gap is filled.
void openUnfilled(const FontSets::Set& set, const std::string& scratch) {
  openService(set.folder, scratch);
  for (const ListedFace& face : listedFaces()) {
    QXFontService_NS::FS_FontInfo font;
    font.createFont(icu::UnicodeString::fromUTF8(face.family), face.weight, face.italic);
  }
}

void run(Bench& bench) {
  constexpr double kNano = 1e9;
  const std::string name = "the first request for a missing weight";
  const FontSets::Set set = bench.fonts().every(18);
  const std::string scratch = bench.fonts().scratch();
  openUnfilled(set, scratch);
  const auto config = configureFontconfig(set.folder, scratch);
  const Requests requests = equalRequests(config.get(), requestsForGaps());
  if (requests.empty()) {
    bench.notComparable(name, "no request finds the same family");
    return;
  }
  const auto createAll = [&] {
    for (const FamilyRequest& request : requests) keep(create(request) ? 1U : 0U);
  };
  const auto matchAll = [&] {
    for (const FamilyRequest& request : requests)
      keep(matchWithFontconfig(config.get(), request.family, request.weight) ? 1U : 0U);
  };
  const Times times =
      alternate(bench.settings(), {createAll, [&] { openUnfilled(set, scratch); }}, {matchAll, {}});
  closeService();
  const double each = kNano / static_cast<double>(requests.size());
  bench.add({name + ", " + std::to_string(set.files.size()) + " fonts", "FcFontMatch",
             "ns a request", Goal::atLeast, 3, 0, times.ours * each, times.theirs * each});
}

const Row kRow{"6", "a missing weight", run};

}  // namespace
}  // namespace qxbench
