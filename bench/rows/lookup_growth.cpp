// A lookup costs the same among many fonts as among few, and in a large family as in a small one.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <memory>

#include "harness/alternate.h"
#include "harness/bench.h"
#include "harness/family_request.h"
#include "harness/opened_service.h"
#include "harness/sfnt_file.h"

namespace qxbench {
namespace {

using Requests = std::vector<FamilyRequest>;

/// The best time of a request in the opened service. The same number of requests for every size,
/// so that what they touch fits the processor's cache equally.
double timeOfRequest(const Bench& bench, Requests requests) {
  constexpr std::size_t kRequests = 50;
  if (requests.size() > kRequests) requests.resize(kRequests);
  for (const FamilyRequest& request : requests) create(request);  // loads them
  const auto createAll = [&] {
    for (const FamilyRequest& request : requests) keep(create(request) ? 1U : 0U);
  };
  return alternate(bench.settings(), {{createAll, {}}}).front() /
         static_cast<double>(requests.size());
}

double timeAmong(const Bench& bench, const FontSets::Set& set) {
  const OpenedService service(set.folder, bench.fonts().scratch());
  return timeOfRequest(bench, requestsForFaces());
}

void amongManyFonts(Bench& bench) {
  const FontSets::Set few = bench.fonts().every(18);
  const double base = timeAmong(bench, few);
  for (const std::size_t step : {4U, 1U}) {
    const FontSets::Set set = bench.fonts().every(step);
    bench.add(Growth{"lookup, " + std::to_string(set.files.size()) + " fonts beside " +
                         std::to_string(few.files.size()),
                     timeAmong(bench, set) / base, 1.5});
  }
}

void put16(std::string& bytes, std::size_t at, unsigned value) {
  bytes[at] = static_cast<char>(value >> 8);
  bytes[at + 1] = static_cast<char>(value & 0xFF);
}

/// Copies of one font that differ in weight and width: a family of `faces` faces.
FontSets::Set family(const Bench& bench, std::size_t faces) {
  constexpr std::size_t kWidths = 9;
  std::string bytes = contentOf(bench.fonts().file("DejaVuSansMono.ttf"));
  const std::size_t os2 = static_cast<std::size_t>(tableOf(bytes, "OS/2").data() - bytes.data());
  FontSets::Set set{bench.fonts().scratch() + "/family-" + std::to_string(faces), {}};
  std::filesystem::create_directories(set.folder);
  for (std::size_t i = 0; i < faces; ++i) {
    put16(bytes, os2 + 4, static_cast<unsigned>(100 + 10 * (i / kWidths)));
    put16(bytes, os2 + 6, static_cast<unsigned>((5 + i) % kWidths + 1));
    set.files.push_back(set.folder + "/" + std::to_string(i) + ".ttf");
    std::ofstream(set.files.back(), std::ios::binary) << bytes;
  }
  return set;
}

/// Requests for faces that are there.
double timeInFamily(const Bench& bench, std::size_t faces) {
  const FontSets::Set set = family(bench, faces);
  const double time = timeAmong(bench, set);
  std::filesystem::remove_all(set.folder);
  return time;
}

void inLargeFamily(Bench& bench) {
  const double base = timeInFamily(bench, 4);
  for (const std::size_t faces : {50U, 500U}) {
    bench.add(Growth{"lookup, a family of " + std::to_string(faces) + " faces beside one of 4",
                     timeInFamily(bench, faces) / base, 2});
  }
}

void run(Bench& bench) {
  amongManyFonts(bench);
  inLargeFamily(bench);
}

const Row kRow{"5", "lookup, growth", run};

}  // namespace
}  // namespace qxbench
