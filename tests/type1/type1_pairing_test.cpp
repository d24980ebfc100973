#include <algorithm>
#include <istream>
#include <memory>
#include <stdexcept>
#include <streambuf>
#include <string>

#include "qxfontservice/error_codes.h"

#include "type1/type1_fixture.h"

namespace QXFontService_NS {
namespace {

using qxtest::AfmBuilder;
using qxtest::PfmBuilder;
using qxtest::Type1Builder;

const std::string kBox = qxtest::type1Box(500, 100);

Type1Builder sound() {
  return Type1Builder().glyph(".notdef", kBox).glyph("A", kBox);
}

/// Metric files and the programs beside them, and what is loaded when.
class Type1Pairing : public qxtest::Type1Test {
 protected:
  /// The program of a metric file: its path, or "none".
  std::string programOf(const std::string& metrics) {
    FS_Type1Printer* const printer = make<FS_Type1AFM>(metrics).getPrinterFont();
    return printer == nullptr ? "none" : qxtest::utf8(printer->fileUri().getLocalPath(false));
  }
  [[nodiscard]] auto opened(const std::string& path) const {
    const auto& paths = world.openedPaths();
    return std::count(paths.begin(), paths.end(), path);
  }
};

TEST_F(Type1Pairing, SegmentsGoBeforeText) {
  world.file("/f/a.pfa", "x").file("/f/a.pfb", "x").file("/f/b.pfa", "x");
  EXPECT_EQ(programOf("/f/a.afm"), "/f/a.pfb");
  EXPECT_EQ(programOf("/f/b.afm"), "/f/b.pfa");
  EXPECT_EQ(programOf("/f/c.afm"), "none");
}

TEST_F(Type1Pairing, TheFirstLetterOfTheExtensionDecidesTheCase) {
  world.file("/f/a.pfb", "x").file("/f/A.PFB", "x").file("/f/B.PFA", "x").file("/f/c.pfb", "x");
  EXPECT_EQ(programOf("/f/A.AFM"), "/f/A.PFB");
  EXPECT_EQ(programOf("/f/A.Afm"), "/f/A.PFB");
  EXPECT_EQ(programOf("/f/B.AFM"), "/f/B.PFA");
  EXPECT_EQ(programOf("/f/a.aFM"), "/f/a.pfb");
  EXPECT_EQ(programOf("/f/c.AFM"), "none");
}

TEST_F(Type1Pairing, NoFileIsReadForIt) {
  world.file("/f/a.pfb", "x");
  programOf("/f/a.afm");
  EXPECT_EQ(world.counts().opened, 0u);
}

TEST_F(Type1Pairing, TheProgramKnowsItsKind) {
  world.file("/f/a.pfb", "x").file("/f/b.pfa", "x");
  FS_Type1Printer& segments = *make<FS_Type1AFM>("/f/a.afm").getPrinterFont();
  EXPECT_EQ(segments.getFileKind(), 2);
  EXPECT_EQ(segments.getClassID(), 0x5D163695u);
  EXPECT_TRUE(segments.isKindOf(0xCE603D8Du));
  EXPECT_EQ(static_cast<int>(segments.getFontFileType(0)), 2);
  EXPECT_EQ(qxtest::utf8(segments.getClassName()), "FS_Type1PFB");
  FS_Type1Printer& text = *make<FS_Type1AFM>("/f/b.afm").getPrinterFont();
  EXPECT_EQ(text.getFileKind(), 1);
  EXPECT_EQ(text.getClassID(), 0xB5FC60DEu);
  EXPECT_TRUE(text.isKindOf(0x523A46D6u));
  EXPECT_EQ(static_cast<int>(text.getFontFileType(0)), 1);
  EXPECT_EQ(qxtest::utf8(text.getClassName()), "FS_Type1PFA");
  EXPECT_TRUE(text.isType1Font() && !text.isTrueTypeFont());
  EXPECT_TRUE(text.isType1OrNoCID(0) && !text.isTrueTypeOrCID(0));
}

TEST_F(Type1Pairing, AnAfmGoesOnWithoutAProgramThatCannotBeRead) {
  world.file("/f/a.pfb", "no program");
  auto& font = afm(AfmBuilder());
  EXPECT_EQ(font.getPrinterFont(), nullptr);
  EXPECT_EQ(error.getErrorCode(), FS_ERROR_FONT_FILE);
  EXPECT_EQ(message(), "Font file error: Header bad signature: 6E\n/f/a.pfb");
  EXPECT_TRUE(font.loadFontTables(nullptr, 0, nullptr));
  EXPECT_EQ(static_cast<int>(font.getEmbedStatus(0)), 1);
}

TEST_F(Type1Pairing, AnAfmGoesOnWithoutAProgramThatCannotBeOpened) {
  world.file("/f/a.pfb", "x").unreadable("/f/a.pfb");
  EXPECT_EQ(afm(AfmBuilder()).getPrinterFont(), nullptr);
  EXPECT_EQ(error.getErrorCode(), FS_ERROR_PRINTER_FONT);
  EXPECT_EQ(error.getErrorCode(), 1925);
  EXPECT_EQ(message(), "Cannot read printer font.\n/f/a.pfb");
}

TEST_F(Type1Pairing, APfmGoesOnOnlyAsAStandardFont) {
  world.file("/f/a.pfb", "no program");
  PfmBuilder file;
  world.file("/f/b.pfm", file.build()).file("/f/b.pfb", "no program");
  EXPECT_FALSE(make<FS_Type1PFM>("/f/b.pfm").readFont(&error, nullptr));
  EXPECT_EQ(error.getErrorCode(), FS_ERROR_FONT_FILE);
  file.font = "Helvetica";
  error = QXError();
  auto& font = pfm(file);
  EXPECT_EQ(font.getPrinterFont(), nullptr);
  EXPECT_EQ(error.getErrorCode(), FS_ERROR_FONT_FILE) << "told all the same";
}

TEST_F(Type1Pairing, APfmWithoutAnyProgramNeedsNoRow) {
  EXPECT_EQ(pfm(PfmBuilder()).getPrinterFont(), nullptr);
  EXPECT_EQ(error.getErrorCode(), 0);
}

TEST_F(Type1Pairing, SegmentsAreLoadedOnceAtTheFirstNeed) {
  world.file("/f/a.pfb", sound().pfb());
  auto& font = afm(AfmBuilder().glyph(65, 700, "A"));
  const auto read = opened("/f/a.pfb");
  font.getTextWidth(u"A", -1000, false, nullptr, 0);
  const auto loaded = opened("/f/a.pfb");
  EXPECT_GT(loaded, read);
  font.getTextWidth(u"A", -1000, false, nullptr, 0);
  font.getType1CharCode('A', 0);
  EXPECT_TRUE(font.loadFontTables(&error, 0, nullptr));
  EXPECT_EQ(opened("/f/a.pfb"), loaded);
  EXPECT_EQ(font.getPrinterFont()->getEmbedableCharCount(0), 1u);
  EXPECT_EQ(world.openStreams(), 0u);
}

TEST_F(Type1Pairing, TextIsNotLoadedButHasAFace) {
  world.file("/f/a.pfa", sound().encoding({{65, "A"}}).pfa());
  auto& font = afm(AfmBuilder().glyph(65, 700, "A"));
  EXPECT_TRUE(font.loadFontTables(&error, 0, nullptr));
  FS_Type1Printer& printer = *font.getPrinterFont();
  EXPECT_EQ(printer.recordOfCode(65), nullptr);
  EXPECT_EQ(printer.recordOfName("A"), nullptr);
  EXPECT_EQ(printer.encodedName(65), "");
  EXPECT_EQ(printer.getEmbedableCharCount(0), 0u);
  EXPECT_NE(font.getFreeTypeFace(0), nullptr);
  EXPECT_EQ(font.getFreeTypeFace(0), printer.getFreeTypeFace(0));
  EXPECT_NE(font.getGlyphID('A', false, 0), FS_NO_GLYPH);
  EXPECT_EQ(static_cast<int>(font.getEmbedStatus(0)), 0);
}

TEST_F(Type1Pairing, AProgramThatFreeTypeRefusesFailsTheLoad) {
  world.file("/f/a.pfb", qxtest::type1Segment(1, "%!PS-AdobeFont-1.0: Made\n"));
  auto& font = afm(AfmBuilder());
  ASSERT_EQ(error.getErrorCode(), 0);
  EXPECT_FALSE(font.loadFontTables(&error, 0, nullptr));
  EXPECT_EQ(error.getErrorCode(), 1926);
  QXError second;
  EXPECT_FALSE(font.loadFontTables(&second, 0, nullptr)) << "the answer stays";
  EXPECT_EQ(font.getType1CharCode('A', 0), 0);
  EXPECT_FALSE(embed(font, 0, "A").done);
}

TEST_F(Type1Pairing, AGlyphListThatDoesNotOpenFailsTheLoad) {
  options("a.afm").glyphList = qxtest::uriOf("/f/none.txt");
  auto& font = afm(AfmBuilder());
  EXPECT_FALSE(font.loadFontTables(&error, 0, nullptr));
  EXPECT_EQ(error.getErrorCode(), 1923);
  EXPECT_EQ(message(), "Glyph-list open error: /f/none.txt\n/f/a.afm");
}

/// A stream buffer that breaks off.
class Broken final : public std::streambuf {
  int_type underflow() override { throw std::runtime_error("broken"); }
};

class BrokenStream final : public std::istream {
 public:
  BrokenStream() : std::istream(nullptr) { rdbuf(&buffer_); }

 private:
  Broken buffer_;
};

class BrokenPlatform final : public qxtest::MemoryPlatform {
 public:
  std::unique_ptr<std::istream> openFile(const std::string& path) override {
    if (path == "/f/list.txt") return std::make_unique<BrokenStream>();
    return MemoryPlatform::openFile(path);
  }
};

TEST_F(Type1Pairing, AGlyphListThatBreaksOffFailsTheLoad) {
  glyphList("0041;A\n");
  auto& font = afm(AfmBuilder());
  BrokenPlatform broken;
  broken.file("/f/list.txt", "0041;A\n");
  {
    const qxtest::PlatformInPlace inPlace(broken);
    EXPECT_FALSE(font.loadFontTables(&error, 0, nullptr));
  }
  EXPECT_EQ(error.getErrorCode(), 1924);
  EXPECT_EQ(message(), "Glyph-list read error: /f/list.txt\n/f/a.afm");
}

TEST_F(Type1Pairing, ALoadThatFailsAtTheGlyphListDoesNotLoadTheProgram) {
  world.file("/f/a.pfb", sound().pfb());
  options("a.afm").glyphList = qxtest::uriOf("/f/none.txt");
  auto& font = afm(AfmBuilder());
  EXPECT_FALSE(font.loadFontTables(nullptr, 0, nullptr));
  EXPECT_EQ(font.getPrinterFont()->recordOfName("A"), nullptr);
}

}  // namespace
}  // namespace QXFontService_NS
