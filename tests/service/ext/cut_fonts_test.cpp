#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "qxcommon/mem_stream.h"
#include "qxfontservice/ext/open_file.h"

#include "pool/registry/registry_fixture.h"
#include "support/be_bytes.h"
#include "support/class_def_builder.h"
#include "support/dfont_builder.h"
#include "support/kern_builder.h"
#include "support/layout_table_builder.h"
#include "support/sample_open_type.h"
#include "support/truncation.h"
#include "support/ttc_builder.h"
#include "support/woff_builder.h"

namespace QXFontService_NS::ext {
namespace {

using qxtest::SfntBuilder;

/// A piece of a file that is asked for at once, and what is told where the file ends within it.
struct Piece {
  std::size_t end;
  std::string told;
};
/// Pieces in the order in which they are asked for; the first one that is cut ends the reading.
using Pieces = std::vector<Piece>;

/// What is told of a file of `size` bytes; empty where all pieces are there.
std::string toldOf(const Pieces& pieces, std::size_t size) {
  for (const Piece& piece : pieces)
    if (size < piece.end) return piece.told;
  return {};
}

/// What a file with one face is read by: the pieces that its record takes, and those of each table
/// that is loaded later. A cut table does not end the load, and the last report remains.
struct FontPieces {
  Pieces record;
  std::vector<Pieces> tables;

  [[nodiscard]] std::string told(std::size_t size) const {
    std::string last = toldOf(record, size);
    if (!last.empty()) return last;
    for (const Pieces& table : tables)
      if (const std::string text = toldOf(table, size); !text.empty()) last = text;
    return last;
  }
};

/// The face `font` as it stands from `base` on.
class FaceIn {
 public:
  FaceIn(const SfntBuilder& font, std::size_t base) : font_(font), base_(base) {}

  /// Adds what the record takes: header, directory and the small tables.
  void addRecord(std::size_t tableCount, Pieces& out) const {
    const std::string& names = font_.bytesOf("name");
    const auto nameCount = static_cast<std::size_t>(static_cast<unsigned char>(names[3]));
    out.push_back({base_ + 12, "Offset table read error"});
    out.push_back({base_ + 12 + 16 * tableCount, "Table directory read error"});
    out.push_back(start("head", 54, "'head' table read error"));
    out.push_back(start("hhea", 36, "'hhea' table read error"));
    out.push_back(whole("OS/2", "'OS/2' table read error"));
    out.push_back(start("name", 6, "'name' table read error"));
    out.push_back(start("name", 6 + 12 * nameCount, "nameRecord read error"));
    out.push_back(whole("name", "'name' #"));
    out.push_back(start("post", 32, "'post' table read error"));
  }
  [[nodiscard]] Piece start(const char* tag, std::size_t size, const char* told) const {
    return {base_ + font_.offsetOf(tag) + size, told};
  }
  [[nodiscard]] Piece whole(const char* tag, const char* told) const {
    return start(tag, font_.bytesOf(tag).size(), told);
  }
  /// The `cmap` of the sample font: one record, and a subtable of format 4.
  [[nodiscard]] Pieces cmap() const {
    return {start("cmap", 4, "'cmap' table read error"),
            start("cmap", 12, "'cmap' table record read error"),
            start("cmap", 14, "'cmap' table format read error"),
            start("cmap", 26, "'cmap' table format 4 read error"),
            whole("cmap", "'cmap' table segment read error")};
  }
  /// A `kern` table with one subtable of format 0.
  [[nodiscard]] Pieces kern() const {
    return {start("kern", 4, "'kern' table read error"),
            start("kern", 10, "'kern' subtable 0 read error"),
            start("kern", 18, "'kern' subtable 0 format0 read error"),
            whole("kern", "'kern' subtable 0 pairs read error")};
  }

 private:
  const SfntBuilder& font_;
  std::size_t base_;
};

/// Puts tables behind those that stand in the font, in this order.
void putLast(SfntBuilder& font, const std::vector<const char*>& tags) {
  for (const char* tag : tags) {
    const std::string bytes = font.bytesOf(tag);
    font.without(tag).table(tag, bytes);
  }
}

std::string emptyLayoutTable() {
  return qxtest::LayoutTableBuilder().str();
}

constexpr std::size_t kLayoutTables = 14;

/// The sample font with the tables of the load last, in the opposite order of the load, so that
/// each of them is the last that is found cut at some size.
SfntBuilder layoutFont() {
  SfntBuilder font = qxtest::sampleFont();
  font.table("kern", qxtest::KernBuilder().format0({{2, 3, -50}, {3, 2, -10}}).build());
  font.table("GSUB", emptyLayoutTable()).table("GPOS", emptyLayoutTable());
  // Classes of ranges hold whatever the glyph count, so a cut `maxp` is told and not `GDEF`.
  font.table("GDEF", qxtest::gdefTable(qxtest::classDefOfRanges({{2, 3, 1}})));
  putLast(font, {"hmtx", "kern", "cmap", "GSUB", "GPOS", "GDEF", "maxp", "loca", "glyf"});
  return font;
}

FontPieces piecesOf(const SfntBuilder& font) {
  const FaceIn face(font, 0);
  FontPieces out;
  face.addRecord(kLayoutTables, out.record);
  out.tables = {{face.start("maxp", 32, "'maxp' table read error")},
                {face.whole("GDEF", "'GDEF' table read error")},
                {face.whole("GPOS", "'GPOS' table read error")},
                {face.whole("GSUB", "'GSUB' table read error")},
                face.cmap(),
                face.kern(),
                {face.whole("hmtx", "'hmtx' table metric read error")}};
  return out;
}

class CutFonts : public qxtest::RegistryTest {
 protected:
  CutFonts() { openFolder(); }
  ~CutFonts() override { font.deleteFont(); }

  /// Opens the bytes as a file of this name; the answer is code and message, empty on success.
  std::string opened(const std::string& name, const std::string& bytes, int face = 0) {
    world.file(name, bytes);
    font.deleteFont();
    return answer(openFontFile(uriOf(name), face, font));
  }
  /// The same by the handle alone, which takes files with one face.
  std::string created(const std::string& name, const std::string& bytes) {
    world.file(name, bytes);
    font.deleteFont();
    return answer(font.createFont(uriOf(name)));
  }
  /// Whether `answer` is a short read of this detail, in the file of this name.
  static bool tells(const std::string& answer, const std::string& detail, const std::string& name) {
    if (detail.empty()) return answer.empty();
    const std::string begin = "1921 Font read error: " + detail;
    const std::string end = "\n" + name;
    return answer.size() >= begin.size() + end.size() && answer.rfind(begin, 0) == 0 &&
           answer.substr(answer.size() - end.size()) == end;
  }

  FS_FontInfo font;

 private:
  static QXUri uriOf(const std::string& name) {
    return QXUri(icu::UnicodeString::fromUTF8(name), QXCommonNS::URISTR_USER);
  }
  std::string answer(bool made) {
    EXPECT_EQ(made, font.isCreatedFont());
    EXPECT_EQ(made, font.getError().getErrorCode() == 0);
    EXPECT_EQ(world.openStreams(), 0U);
    if (made) return {};
    std::string message;
    font.getError().getErrorMessage().toUTF8String(message);
    return std::to_string(font.getError().getErrorCode()) + " " + message;
  }
};

TEST_F(CutFonts, ATrueTypeFontTellsTheLastTableThatIsCut) {
  const SfntBuilder builder = layoutFont();
  const FontPieces pieces = piecesOf(builder);
  qxtest::forEachPrefix(builder.build(), [&](const std::string& cut) {
    const std::string told = pieces.told(cut.size());
    ASSERT_PRED3(tells, opened("/x/cut.ttf", cut), told, "/x/cut.ttf") << cut.size();
    ASSERT_PRED3(tells, created("/x/cut.ttf", cut), told, "/x/cut.ttf") << cut.size();
  });
}

TEST_F(CutFonts, ATrueTypeFontWithoutItsOutlinesIsMadeAndWritesWhatIsThere) {
  const SfntBuilder builder = layoutFont();
  const std::string whole = builder.build();
  for (std::size_t size = builder.offsetOf("loca"); size < whole.size(); ++size) {
    ASSERT_EQ(opened("/x/cut.ttf", whole.substr(0, size)), "") << size;
    EXPECT_EQ(font.getGlyphID('B', false), 3) << size;
    EXPECT_EQ(font.getGlyphWidth(3, 0, false), 600) << size;
    EXPECT_TRUE(font.canEmbedFont()) << size;
    QXMemStream out(nullptr, 8192, false, true);
    EXPECT_TRUE(font.makeSubsetFont({3}, out)) << size;
  }
}

/// What is told of each cut within `CFF `: its own text up to a byte of the table, nothing behind.
template <class Open>
void expectCffToldUpToOneByte(const SfntBuilder& builder, Open open) {
  const std::string whole = builder.build();
  bool made = false;
  for (std::size_t size = builder.offsetOf("CFF "); size < whole.size(); ++size) {
    const std::string answer = open(whole.substr(0, size));
    EXPECT_TRUE(answer.empty() || !made) << size;
    made = made || answer.empty();
    EXPECT_TRUE(made || answer == "1921 Font read error: 'CFF' table read error\n/x/cut.otf")
        << size << " " << answer;
  }
  EXPECT_TRUE(made);  // charstrings are read when they are asked for
}

TEST_F(CutFonts, AnOpenTypeFontTellsItsRecordTheLastTableAndCff) {
  for (const qxtest::CffBuilder& cff : {qxtest::sampleCff(), qxtest::sampleCidCff()}) {
    SfntBuilder builder = qxtest::sampleOpenType(cff);
    putLast(builder, {"hmtx", "cmap", "maxp", "CFF "});
    const FaceIn face(builder, 0);
    FontPieces pieces;
    face.addRecord(9, pieces.record);
    pieces.tables = {{face.start("maxp", 32, "'maxp' table read error")},
                     face.cmap(),
                     {face.whole("hmtx", "'hmtx' table metric read error")}};
    const std::string whole = builder.build();
    for (std::size_t size = 0; size < builder.offsetOf("CFF "); ++size) {
      std::string told = pieces.told(size);
      if (told.empty()) told = "'CFF' table read error";  // read first, so the others hide it
      ASSERT_PRED3(tells, opened("/x/cut.otf", whole.substr(0, size)), told, "/x/cut.otf") << size;
      ASSERT_PRED3(tells, created("/x/cut.otf", whole.substr(0, size)), told, "/x/cut.otf") << size;
    }
    expectCffToldUpToOneByte(builder,
                             [this](const std::string& cut) { return opened("/x/cut.otf", cut); });
    expectCffToldUpToOneByte(builder,
                             [this](const std::string& cut) { return created("/x/cut.otf", cut); });
  }
}

TEST_F(CutFonts, ACollectionTellsTheFirstOfItsMembersThatIsCut) {
  const SfntBuilder member = layoutFont();
  const auto builder = qxtest::TtcBuilder().member(member).member(member);
  FontPieces pieces;
  pieces.record = {{12, "TTC header read error"}, {20, "Offset table read error"}};
  for (const std::size_t place : {0U, 1U})
    FaceIn(member, builder.offsetOf(place)).addRecord(kLayoutTables, pieces.record);
  const std::string whole = builder.build();
  qxtest::forEachPrefix(whole, [&](const std::string& cut) {
    if (cut.size() >= pieces.record.back().end) return;
    const std::string told = pieces.told(cut.size());
    for (const int face : {0, 1})
      ASSERT_PRED3(tells, opened("/x/cut.ttc", cut, face), told, "/x/cut.ttc") << cut.size();
  });
}

TEST_F(CutFonts, OfACollectionTheLastMemberLosesItsTablesAndTheOthersStand) {
  const SfntBuilder member = layoutFont();
  const auto builder = qxtest::TtcBuilder().member(member).member(member);
  const std::size_t base = builder.offsetOf(1);
  const FontPieces alone = piecesOf(member);
  const std::string whole = builder.build();
  for (std::size_t size = base + alone.record.back().end; size < whole.size(); ++size) {
    const std::string cut = whole.substr(0, size);
    ASSERT_EQ(opened("/x/cut.ttc", cut, 0), "") << size;
    EXPECT_EQ(font.getPairKerningValue(2, 3, 0, false), -50) << size;
    const std::string told = alone.told(size - base);
    ASSERT_PRED3(tells, opened("/x/cut.ttc", cut, 1), told, "/x/cut.ttc") << size;
  }
}

/// A suitcase whose map stands before the data, so that data can be cut and the map be whole.
struct MapFirst {
  static constexpr std::size_t kMap = 256;

  explicit MapFirst(const SfntBuilder& font) {
    const qxtest::BeBytes file = qxtest::DfontBuilder().resource("sfnt", font.build()).bytes();
    const std::size_t mapAt = file.at("map");
    const std::string map = file.str().substr(mapAt);
    mapEnd = kMap + map.size();
    bytes = qxtest::BeBytes()
                .u32(static_cast<std::uint32_t>(mapEnd))
                .u32(kMap)
                .text(file.str().substr(8, kMap - 8))
                .text(map)
                .text(file.str().substr(kMap, mapAt - kMap))
                .str();
  }

  std::string bytes;
  std::size_t mapEnd = 0;
};

TEST_F(CutFonts, ASuitcaseTellsAShortForkWithoutWordsAndThenItsMember) {
  const SfntBuilder member = layoutFont();
  const MapFirst file(member);
  const std::size_t base = file.mapEnd + 4;
  const FontPieces alone = piecesOf(member);
  for (std::size_t size = 0; size < file.bytes.size(); ++size) {
    const std::string answer = opened("/x/cut.dfont", file.bytes.substr(0, size));
    if (size < file.mapEnd) {
      ASSERT_EQ(answer, "1921 Font read error.\n/x/cut.dfont") << size;
    } else {
      const std::string told = alone.told(size < base ? 0 : size - base);
      ASSERT_PRED3(tells, answer, told, "/x/cut.dfont") << size;
    }
  }
}

/// Where the data of the last table of a web font end, in the order of the file.
std::size_t endOfData(const std::string& woff, unsigned tables) {
  const auto u32 = [&](std::size_t at) {
    std::size_t value = 0;
    for (std::size_t i = 0; i < 4; ++i)
      value = value << 8 | static_cast<unsigned char>(woff[at + i]);
    return value;
  };
  std::size_t end = 0;
  for (std::size_t entry = 44; entry < 44 + 20 * std::size_t{tables}; entry += 20)
    end = std::max(end, u32(entry + 4) + u32(entry + 8));
  return end;
}

TEST_F(CutFonts, AWebFontTellsAShortReadWithoutWords) {
  for (const SfntBuilder& packed : {layoutFont(), qxtest::sampleOpenType(qxtest::sampleCff())}) {
    const std::string whole = qxtest::WoffBuilder::of(packed).build();
    const std::size_t end = endOfData(whole, static_cast<unsigned char>(whole[13]));
    ASSERT_LE(end, whole.size());
    for (std::size_t size = 0; size <= whole.size(); ++size)
      ASSERT_EQ(opened("/x/cut.woff", whole.substr(0, size)),
                size < end ? "1921 Font read error.\n/x/cut.woff" : "")
          << size;
  }
}

}  // namespace
}  // namespace QXFontService_NS::ext
