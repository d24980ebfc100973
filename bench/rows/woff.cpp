// Packing a font as WOFF and reading it back, from memory to memory, beside bare zlib over its
// tables; and packing a file beside the command sfnt2woff, whose start is not held against it.

#include "embed/woff.h"

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "qxcommon/mem_stream.h"
#include "qxcommon/uri.h"

#include "font/woff_reader.h"
#include "harness/alternate.h"
#include "harness/bench.h"
#include "harness/sfnt_file.h"
#include "peers/woff_file.h"

namespace qxbench {
namespace {

using QXCommonNS::QXMemStream;

constexpr double kNano = 1e9;
constexpr std::size_t kBlock = 8192;
constexpr const char* kFonts[] = {"DejaVuSans.ttf", "EBGaramond12-Regular.otf",
                                  "NotoSans-Regular.ttf"};

/// A memory stream with a font in it, as the writer of subsets hands it on.
class SfntStream : public QXMemStream {
 public:
  explicit SfntStream(const std::string& bytes) : QXMemStream(nullptr, kBlock, false, true) {
    write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  }
};

std::string packed(QXMemStream& sfnt) {
  QXMemStream out(nullptr, kBlock, false, true);
  QXFontService_NS::embed::writeWOFF(out, sfnt);
  std::ostringstream text;
  text << out.rdbuf();
  return text.str();
}

/// Whether a WOFF file has the tables of the font, byte for byte.
bool holdsTables(const std::string& woff, const std::string& sfnt) {
  const std::vector<std::string> tables = tablesOfWoff(woff);
  const std::vector<SfntTable> directory = sfntDirectories(viewOf(sfnt)).front();
  if (tables.size() != directory.size()) return false;
  for (std::size_t i = 0; i < tables.size(); ++i)
    if (tables[i] != tableOf(sfnt, directory[i].tag.c_str())) return false;
  return true;
}

void compareWithZlib(Bench& bench, const std::string& name, const std::string& font,
                     QXMemStream& sfnt) {
  std::string buffer;
  const Work ours{[&] {
                    QXMemStream out(nullptr, kBlock, false, true);
                    QXFontService_NS::embed::writeWOFF(out, sfnt);
                    keep(out.length());
                  },
                  {}};
  const Work floor{[&] { keep(deflateTables(font, buffer)); }, {}};
  const Times times = alternate(bench.settings(), ours, floor);
  bench.add({name, "bare zlib", "ns a font", Goal::atMost, 1.10, 1.03, times.ours * kNano,
             times.theirs * kNano});
}

double secondsOf(const std::string& command) {
  const auto start = std::chrono::steady_clock::now();
  if (std::system(command.c_str()) != 0) keep(1);
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// Reads a font file and writes the packed one beside it.
void packFile(const std::string& from, const std::string& to) {
  const QXCommonNS::QXUri uri(icu::UnicodeString::fromUTF8(from), QXCommonNS::URISTR_FOLDER);
  QXMemStream sfnt(uri.getIStream(nullptr, nullptr), kBlock, true, true);
  QXMemStream packed(nullptr, kBlock, false, true);
  QXFontService_NS::embed::writeWOFF(packed, sfnt);
  std::ofstream(to, std::ios::binary) << packed.rdbuf();
}

void compareWithCommand(Bench& bench, const std::string& name, const std::string& font) {
  const std::string file = bench.fonts().scratch() + "/packed.ttf";
  const std::string woff = bench.fonts().scratch() + "/packed.woff";
  std::ofstream(file, std::ios::binary) << font;
  const std::string quiet = " >/dev/null 2>&1";
  const std::string start = "sfnt2woff" + quiet;
  const std::string command = "sfnt2woff '" + file + "'" + quiet;
  secondsOf(command);
  if (!holdsTables(contentOf(woff), font)) {
    bench.leaveOut(name, "sfnt2woff is not here, or failed");
    return;
  }
  const std::vector<double> times =
      alternate(bench.settings(), {{[&] { packFile(file, woff); }, {}},
                                   {[&] { secondsOf(command); }, {}},
                                   {[&] { secondsOf(start); }, {}}});
  bench.add({name, "sfnt2woff", "ns a font", Goal::atLeast, 1.4, 0, times[0] * kNano,
             (times[1] - times[2]) * kNano});
}

void runPacking(Bench& bench) {
  for (const char* file : kFonts) {
    const std::string name = std::string("packing a WOFF, ") + file;
    const std::string path = bench.fonts().file(file);
    if (path.empty()) {
      bench.leaveOut(name, "the font is not here");
      continue;
    }
    const std::string font = contentOf(path);
    SfntStream sfnt(font);
    if (!holdsTables(packed(sfnt), font)) {
      bench.notComparable(name, "tables differ");
      continue;
    }
    compareWithZlib(bench, name, font, sfnt);
    compareWithCommand(bench, name, font);
  }
}

/// The font inside a WOFF file, as our reader unpacks it.
std::string unpacked(std::istream& woff) {
  std::shared_ptr<QXFontService_NS::UnpackedSfnt> sfnt;
  if (QXFontService_NS::unpackWoff(woff, sfnt)) return {};
  std::ostringstream text;
  text << sfnt->content().rdbuf();
  return text.str();
}

void compareReading(Bench& bench, const std::string& name, const std::string& woff) {
  std::istringstream stream(woff, std::ios::in | std::ios::binary);
  std::string buffer;
  const Work ours{[&] {
                    std::shared_ptr<QXFontService_NS::UnpackedSfnt> sfnt;
                    stream.clear();
                    keep(QXFontService_NS::unpackWoff(stream, sfnt) ? 1U : 0U);
                  },
                  {}};
  const Work floor{[&] { keep(inflateTables(woff, buffer)); }, {}};
  const Times times = alternate(bench.settings(), ours, floor);
  bench.add({name, "bare inflate and a copy", "ns a font", Goal::atMost, 1.10, 0,
             times.ours * kNano, times.theirs * kNano});
}

void runReading(Bench& bench) {
  for (const char* file : kFonts) {
    const std::string name = std::string("reading a WOFF, ") + file;
    const std::string path = bench.fonts().file(file);
    if (path.empty()) {
      bench.leaveOut(name, "the font is not here");
      continue;
    }
    const std::string font = contentOf(path);
    SfntStream sfnt(font);
    const std::string woff = packed(sfnt);
    std::istringstream stream(woff, std::ios::in | std::ios::binary);
    const std::string back = unpacked(stream);
    SfntStream again(back);
    if (back.empty() || packed(again).size() != woff.size() || !holdsTables(woff, back)) {
      bench.notComparable(name, "tables differ");
    } else {
      compareReading(bench, name, woff);
    }
  }
}

const Row kPackingRow{"19", "packing a WOFF", runPacking};
const Row kReadingRow{"20", "reading a WOFF", runReading};

}  // namespace
}  // namespace qxbench
