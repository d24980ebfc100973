#include "font_world.h"

#include <vector>

#include "qxcommon/error.h"
#include "qxcommon/mem_stream.h"
#include "qxfontservice/ext/inspect.h"
#include "qxfontservice/ext/open_file.h"
#include "qxfontservice/extra_font_manager.h"
#include "qxfontservice/font_service.h"

#include "support/memory_platform.h"

namespace qxfuzz {
namespace {

namespace fs = QXFontService_NS;
using fs::FS_FontInfo;
using Lang = QXCommonNS::QXLang;

constexpr int kMostFaces = 4;
constexpr int kSizes[] = {0, 12, -12};

/// A world with an empty font folder, over which the service is open.
class World : public qxtest::MemoryPlatform {
 public:
  World() : inPlace_(*this) {
    folder("/usr/share/fonts").addFontFolderCandidate("/usr/share/fonts/");
    fs::QXError error;
    fs::FontServiceOpen(nullptr, &error);
  }

 private:
  qxtest::PlatformInPlace inPlace_;
};

qxtest::MemoryPlatform& world() {
  static World opened;
  return opened;
}

const icu::UnicodeString& someText() {
  static const icu::UnicodeString text(u"A B\u0301 fi\u3042\uFF08\U00020000\uE000\u0628\u0644");
  return text;
}

const std::vector<unsigned short>& someGlyphs() {
  static const std::vector<unsigned short> gids = {0, 1, 2, 3, 5, 40, 300, 0xFFFE, 0xFFFF, 2};
  return gids;
}

using Writer = std::function<void(fs::QXMemStream&)>;

void write(const Writer& writer) {
  fs::QXMemStream out(nullptr, 4096, false, true);
  writer(out);
}

}  // namespace

void putFile(const std::string& extension, const std::string& bytes) {
  world().file("/input" + extension, bytes);
}

void removeFile(const std::string& extension) {
  world().remove("/input" + extension);
}

void withFont(const std::string& bytes, const std::string& extension,
              const std::function<void(const FS_FontInfo&)>& use) {
  const std::string path = "/input" + extension;
  world().file(path, bytes);
  const fs::QXUri uri(icu::UnicodeString::fromUTF8(path), QXCommonNS::URISTR_USER);
  for (int face = 0; face < kMostFaces; ++face) {
    FS_FontInfo font;
    if (!fs::ext::openFontFile(uri, face, font)) break;
    use(font);
    font.deleteFont();
  }
}

void withDocumentFont(const std::string& bytes, const std::string& extension,
                      const std::function<void(const FS_FontInfo&)>& use) {
  const icu::UnicodeString path = icu::UnicodeString::fromUTF8("/document" + extension);
  world().file("/document" + extension, bytes);
  fs::FS_ExtraFontManager manager;
  fs::QXError error;
  const int number = manager.appendExtraFont(path, fs::FS_FILETYPE_UNKNOWN, u"Own", 700, 1, &error);
  // Under a second name it is searched by its own names too.
  manager.appendExtraFont(path, fs::FS_FILETYPE_UNKNOWN, u"Again", 0, -1, &error);
  manager.getExtraFontFaceName(number, nullptr, nullptr, nullptr, nullptr);
  FS_FontInfo font;
  if (font.createFont(u"Again", 400, false, 5, manager.getExtraFonts())) use(font);
}

void askNames(const FS_FontInfo& font) {
  for (const int language : fs::ext::nameLanguages(font)) {
    const auto lang = static_cast<Lang::LanguageID>(language);
    font.getFamilyName(lang);
    font.getSubFamilyName(lang);
    font.getFullFontName(lang);
    font.getPostScriptName(lang);
  }
  font.getCopyright(Lang::LANGID_DEFAULT);
  font.getManufacturer(Lang::LANGID_DEFAULT);
  font.getLicenseDescription(Lang::LANGID_DEFAULT);
}

void askCharacters(const FS_FontInfo& font) {
  for (int code = 0; code < 0x300; ++code) font.getGlyphID(code, code % 2 != 0);
  std::vector<unsigned short> gids(static_cast<std::size_t>(someText().length()));
  for (const bool vertical : {false, true}) {
    int count = 0;
    int missing = 0;
    font.getGlyphIDs(someText(), gids.data(), count, vertical, &missing);
    font.hasVerticalGlyph();
    font.hasVerticalGlyph(0x3042);
  }
  font.variationSequence(0x3042, 0xFE00);
  font.variationSequence(0x20000, 0xE0100);
  font.getGlyphIDfromCID(7);
  font.getStringID(3);
}

void askMetrics(const FS_FontInfo& font) {
  for (const int size : kSizes) {
    for (const unsigned short gid : someGlyphs()) {
      font.getGlyphWidth(gid, size, size == 12);
      font.getGlyphVertOriginY(gid, size);
      font.getPairKerningValue(gid, 2, size, size == 12);
    }
    font.getDefaultCharWidth(size);
    font.getDefaultVertOriginY(size);
    font.getTextWidth(someText(), size, size == 12, nullptr);
    fs::FS_NewTextMetricEx metric;
    font.getOutlineTextMetrics(metric, size);
  }
  fs::FS_CIDSystemInfo info;
  font.getCIDSystemInfo(info);
  font.getCapHeight();
  font.getXHeight();
  font.isSymbolicFont();
}

void askEmbedding(const FS_FontInfo& font) {
  const auto& gids = someGlyphs();
  write([&](fs::QXMemStream& out) { font.getEmbedFont(gids, out); });
  write([&](fs::QXMemStream& out) { font.getSVG2EmbedFont(gids, out); });
  write([&](fs::QXMemStream& out) { font.getEmbedFontWithCmap(gids, out); });
  write([&](fs::QXMemStream& out) { font.getEmbedFontStream(out); });
  write([&](fs::QXMemStream& out) { font.makeSubsetFont(gids, out); });
  write([&](fs::QXMemStream& out) { font.makeWebFont(gids, out); });
  write([&](fs::QXMemStream& out) { font.getType1EmbedFont(gids, out); });
  write([&](fs::QXMemStream& out) {
    icu::UnicodeString name;
    fs::FS_CIDSystemInfo info;
    font.makePostScriptCIDFontType0(gids, out, name, info);
  });
}

void askLayout(const FS_FontInfo& font) {
  fs::FS_GSUBGPOSInfo* const info = font.getGSUBGPOSInfo(fs::toTAG(u"test"), 0);
  fs::GlyphIDArray2 run;
  std::vector<fs::GlyphIDPosition> positions;
  for (const int gid : {1, 2, 3, 50, 51, 70, 50, 1, 60, 2, 3, 1, 2}) {
    const auto glyph = static_cast<unsigned short>(gid);
    run.push_back(glyph, font.getGlyphClassDef(glyph));
    fs::GlyphIDPosition position(1, 500);
    position.setGlyph2(run.at(run.size() - 1), gid % 3 == 0 ? 0 : 500);
    position.setFlag(0xC000 & gid << 12);
    positions.push_back(position);
  }
  for (int index = 0; FS_FontInfo::getGSUBFeatureTag(info, index) != 0 && index < 40; ++index) {
    fs::GlyphIDArray2 output;
    FS_FontInfo::processGSUB3(info, index, run, output, 1);
  }
  for (int index = 0; FS_FontInfo::getGPOSFeatureTag(info, index) != 0 && index < 40; ++index)
    FS_FontInfo::processGPOS3(info, index, positions, index % 2 != 0);
  for (int at = 0; info != nullptr && at < run.size(); ++at) {
    int position = at;
    fs::GlyphIDArray output;
    fs::GlyphIDArray passed;
    FS_FontInfo::processGSUB(info, fs::toTAG(u"test"), run, position, output, passed, 1);
    FS_FontInfo::processGPOS(info, fs::toTAG(u"test"), positions, at, at % 2 != 0);
  }
  FS_FontInfo::deleteGSUBGPOSInfo(info);
}

void askAll(const FS_FontInfo& font) {
  askNames(font);
  askCharacters(font);
  askMetrics(font);
  askLayout(font);
  askEmbedding(font);
}

}  // namespace qxfuzz
