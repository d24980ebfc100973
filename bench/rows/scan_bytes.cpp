// What opening asks of the system: the bytes of the tables that tell names and style, and of one
// directory, with as few calls as that takes.

#include <algorithm>
#include <map>

#include "harness/bench.h"
#include "harness/opened_service.h"
#include "harness/page_cache.h"
#include "harness/sfnt_file.h"

namespace qxbench {
namespace {

/// How many bytes of a table name and style take; 0 means all of them.
const std::map<std::string, std::uint32_t>& tablesRead() {
  static const std::map<std::string, std::uint32_t> all{{"head", 54}, {"hhea", 36}, {"OS/2", 100},
                                                        {"name", 0},  {"post", 32}, {"vhea", 36}};
  return all;
}

std::uint64_t bytesNeeded(const std::vector<SfntTable>& tables) {
  std::uint64_t bytes = 12 + 16 * tables.size();
  for (const SfntTable& table : tables) {
    const auto read = tablesRead().find(table.tag);
    if (read == tablesRead().end()) continue;
    bytes += read->second == 0 ? table.length : std::min(read->second, table.length);
  }
  return bytes;
}

std::uint64_t bytesNeeded(const FontSets::Set& set) {
  std::uint64_t bytes = 0;
  for (const std::string& path : set.files) {
    const std::string content = contentOf(path);
    for (const auto& tables : sfntDirectories(viewOf(content))) bytes += bytesNeeded(tables);
  }
  return bytes;
}

void run(Bench& bench) {
  constexpr double kCallsOfAFile = 10;
  const FontSets::Set set = bench.fonts().every(1);
  const double files = static_cast<double>(set.files.size());
  const double needed = static_cast<double>(bytesNeeded(set));
  const ReadCounts before = readCounts();
  openService(set.folder, bench.fonts().scratch());
  const ReadCounts after = readCounts();
  closeService();
  bench.add({"bytes asked for by the scan", "the tables read", "bytes a file", Goal::atMost, 1.2, 0,
             static_cast<double>(after.bytes - before.bytes) / files, needed / files});
  bench.add({"read calls of the scan", "10 calls", "calls a file", Goal::atMost, 1, 0,
             static_cast<double>(after.calls - before.calls) / files, kCallsOfAFile});
}

const Row kRow{"4", "bytes asked for by the scan", run};

}  // namespace
}  // namespace qxbench
