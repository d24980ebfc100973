#include "harness/report.h"

#include <cstdio>
#include <fstream>
#include <iomanip>

namespace qxbench {
namespace {

std::string quoted(const std::string& text) {
  std::string out = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') out += '\\';
    if (static_cast<unsigned char>(c) >= 0x20) out += c;
  }
  return out + "\"";
}

const char* wordOf(bool met) {
  return met ? "met" : "MISSED";
}

const char* signOf(Goal goal) {
  return goal == Goal::atLeast ? ">=" : "<=";
}

/// The members of a JSON array, a line each, with commas between them.
template <class Items, class Write>
void writeArray(std::ostream& out, const char* name, const Items& items, Write write) {
  out << quoted(name) << ":[";
  const char* separator = "\n";
  for (const auto& item : items) {
    out << separator << "  {";
    write(item);
    out << "}";
    separator = ",\n";
  }
  out << "]";
}

void writeRow(std::ostream& out, const Bench::Numbered& row) {
  const Outcome& o = row.outcome;
  out << "\"row\":" << quoted(row.number) << ",\"name\":" << quoted(o.name)
      << ",\"peer\":" << quoted(o.peer) << ",\"ratio\":" << o.ratio() << ",\"must\":" << o.must
      << ",\"aim\":";
  if (o.aim > 0) {
    out << o.aim;
  } else {
    out << "null";
  }
  out << ",\"met\":" << (o.met() ? "true" : "false") << ",\"ours_ns\":" << o.ours
      << ",\"peer_ns\":" << o.theirs << ",\"unit\":" << quoted(o.unit)
      << ",\"goal\":" << quoted(o.goal == Goal::atLeast ? "at least" : "at most");
}

void writeMachine(std::ostream& out, const Machine& machine) {
  out << "\"machine\":{\"processor\":" << quoted(machine.processor)
      << ",\"cores\":" << machine.cores << ",\"load\":" << machine.load
      << ",\"system\":" << quoted(machine.system) << ",\"compiler\":" << quoted(machine.compiler)
      << "}";
}

}  // namespace

void printHead(const Machine& machine, const Settings& settings) {
  std::printf("%s, %d cores, load %.2f, %s, %s\n", machine.processor.c_str(), machine.cores,
              machine.load, machine.system.c_str(), machine.compiler.c_str());
  for (const PeerVersion& peer : peerVersions())
    std::printf("%s %s  ", peer.name.c_str(), peer.version.c_str());
  std::printf("\n%d rounds, best against best\n\n", settings.rounds);
}

void printOutcome(const Bench::Numbered& row) {
  const Outcome& o = row.outcome;
  std::printf("%3s  %-58s %-26s %9.2fx  (must %s %g)  %-6s  %12.2f | %12.2f  %s\n",
              row.number.c_str(), o.name.c_str(), o.peer.c_str(), o.ratio(), signOf(o.goal), o.must,
              wordOf(o.met()), o.ours, o.theirs, o.unit.c_str());
  std::fflush(stdout);
}

void printGrowth(const Growth& growth) {
  std::printf("     growth: %-77s %9.2f   (must <= %g)  %s\n", growth.name.c_str(), growth.ratio,
              growth.limit, wordOf(growth.met()));
  std::fflush(stdout);
}

void printRemark(const std::string& number, const Remark& remark, const char* verdict) {
  std::printf("%3s  %-58s %s: %s\n", number.c_str(), remark.name.c_str(), verdict,
              remark.text.c_str());
  std::fflush(stdout);
}

bool writeResults(const Bench& bench, const Machine& machine, const std::string& path) {
  std::ofstream out(path);
  out << std::setprecision(6) << "{";
  writeArray(out, "rows", bench.outcomes(), [&](const auto& row) { writeRow(out, row); });
  out << ",\n";
  writeArray(out, "growth", bench.growths(), [&](const Growth& g) {
    out << "\"name\":" << quoted(g.name) << ",\"ratio\":" << g.ratio << ",\"limit\":" << g.limit
        << ",\"met\":" << (g.met() ? "true" : "false");
  });
  out << ",\n";
  const auto remark = [&](const Remark& r) {
    out << "\"name\":" << quoted(r.name) << ",\"why\":" << quoted(r.text);
  };
  writeArray(out, "not_comparable", bench.unequal(), remark);
  out << ",\n";
  writeArray(out, "left_out", bench.leftOut(), remark);
  out << ",\n\"rounds\":" << bench.settings().rounds << ",\n";
  writeArray(out, "versions", peerVersions(), [&](const PeerVersion& peer) {
    out << "\"name\":" << quoted(peer.name) << ",\"version\":" << quoted(peer.version);
  });
  out << ",\n";
  writeMachine(out, machine);
  out << "}\n";
  return out.good();
}

}  // namespace qxbench
