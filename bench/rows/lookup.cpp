// A handle by family name on fonts that are loaded, beside fontconfig's match without any rules of
// the system, its cheapest.

#include <algorithm>

#include "harness/alternate.h"
#include "harness/bench.h"
#include "harness/family_request.h"
#include "harness/opened_service.h"
#include "peers/fontconfig_peer.h"

namespace qxbench {
namespace {

constexpr double kNano = 1e9;
constexpr std::size_t kMostRequests = 200;

using Requests = std::vector<FamilyRequest>;

/// Requests that both sides answer from the same family; a family of a condensed face alone, say,
/// fontconfig may leave for another.
Requests equalRequests(FcConfig* config, const Requests& all) {
  Requests equal;
  for (const FamilyRequest& request : all) {
    const auto pattern = matchWithFontconfig(config, request.family, request.weight);
    bool same = false;
    for (int i = 0; !same && i < 4; ++i)
      same = textOf(pattern.get(), FC_FAMILY, i) == request.family;
    if (same && create(request)) equal.push_back(request);
    if (equal.size() == kMostRequests) break;
  }
  return equal;
}

void createAll(const Requests& requests) {
  for (const FamilyRequest& request : requests) keep(create(request) ? 1U : 0U);
}

void matchAll(FcConfig* config, const Requests& requests) {
  for (const FamilyRequest& request : requests)
    keep(matchWithFontconfig(config, request.family, request.weight) != nullptr ? 1U : 0U);
}

void compare(Bench& bench, std::size_t step, double must, double aim) {
  const FontSets::Set set = bench.fonts().every(step);
  const std::string name =
      "createFont by name, loaded, among " + std::to_string(set.files.size()) + " fonts";
  const OpenedService service(set.folder, bench.fonts().scratch());
  const auto config = configureFontconfig(set.folder, bench.fonts().scratch());
  const Requests requests = equalRequests(config.get(), requestsForFaces());
  if (requests.empty()) {
    bench.notComparable(name, "no request finds the same family");
    return;
  }
  const Times times = alternate(bench.settings(), {[&] { createAll(requests); }, {}},
                                {[&] { matchAll(config.get(), requests); }, {}});
  const double each = kNano / static_cast<double>(requests.size());
  bench.add({name, "FcFontMatch", "ns a request", Goal::atLeast, must, aim, times.ours * each,
             times.theirs * each});
}

void run(Bench& bench) {
  compare(bench, 18, 30, 100);
  compare(bench, 1, 300, 1000);
}

const Row kRow{"5", "createFont by name", run};

}  // namespace
}  // namespace qxbench
