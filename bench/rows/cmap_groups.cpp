// What a lookup costs must grow with the logarithm of the groups at most: character maps of 100,
// 1,000 and 10,000 groups made here, asked in an order that no cache guesses.

#include <numeric>

#include "font/cmap/format12.h"
#include "harness/alternate.h"
#include "harness/bench.h"

namespace qxbench {
namespace {

using QXFontService_NS::cmap::CmapFormat12;

void put32(std::vector<std::byte>& out, std::uint32_t value) {
  for (const int shift : {24, 16, 8, 0}) out.push_back(static_cast<std::byte>(value >> shift));
}

constexpr std::uint32_t kFirst = 0x4E00;
constexpr std::uint32_t kStride = 5;  // three codes of five are mapped

CmapFormat12 mapOf(std::uint32_t groups) {
  CmapFormat12 map;
  map.numGroups = groups;
  for (std::uint32_t i = 0; i < groups; ++i) {
    put32(map.groups, kFirst + kStride * i);
    put32(map.groups, kFirst + kStride * i + 2);
    put32(map.groups, 3 * i + 1);
  }
  map.makeIndex();
  return map;
}

double timeALookup(const Bench& bench, std::uint32_t groups) {
  constexpr std::uint32_t kAsked = 20000;
  const CmapFormat12 map = mapOf(groups);
  std::vector<int> codes;
  for (std::uint32_t i = 0; i < kAsked; ++i)
    codes.push_back(static_cast<int>(kFirst + kStride * (i * 7919 % groups) + i % 3));
  const auto ask = [&] {
    const auto add = [&](unsigned sum, int code) { return sum + map.glyph(code); };
    keep(std::accumulate(codes.begin(), codes.end(), 0U, add));
  };
  return alternate(bench.settings(), {{ask, {}}}).front();
}

void run(Bench& bench) {
  const double base = timeALookup(bench, 100);
  // log 1,000 / log 100 and log 10,000 / log 100
  bench.add(Growth{"a lookup in 1000 groups beside 100", timeALookup(bench, 1000) / base, 1.5});
  bench.add(Growth{"a lookup in 10000 groups beside 100", timeALookup(bench, 10000) / base, 2});
}

const Row kRow{"8", "cmap groups, growth", run};

}  // namespace
}  // namespace qxbench
