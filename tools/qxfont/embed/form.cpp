#include "qxfont/embed/form.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <memory>
#include <utility>

#include "qxcommon/mem_stream.h"
#include "qxfontservice/ext/inspect.h"
#include "qxfontservice/ext/subset_font.h"
#include "qxfontservice/ext/web_font.h"
#include "qxfontservice/tt_glyph_map.h"

#include "qxfont/cli/status.h"
#include "qxfont/embed/cid_post_script.h"

namespace qxfont {
namespace {

using QXCommonNS::QXMemStream;
using QXFontService_NS::FS_FontInfo;
using QXFontService_NS::FS_TTGlyphMap;
using Gids = std::vector<unsigned short>;

using QXFontService_NS::ext::NumberedForm;

constexpr std::size_t kBlock = 8192;
constexpr std::size_t kGlyphBlock = 512;  // most outlines are short, and there may be thousands
constexpr NumberedForm kKeepsIds = NumberedForm::subsetFont;

std::string bytesOf(QXMemStream& stream) {
  stream.clear();
  stream.seekg(0);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

/// Writes by one of the operations of a font that take glyphs and a stream.
template <bool (FS_FontInfo::*Operation)(const Gids&, QXMemStream&) const>
bool writeBy(const FS_FontInfo& font, const Gids& gids, FormResult& out) {
  QXMemStream stream(nullptr, kBlock, false, true);
  if (!(font.*Operation)(gids, stream)) return false;
  out.bytes = bytesOf(stream);
  return true;
}

bool writeConformingSubset(const FS_FontInfo& font, const Gids& gids, FormResult& out) {
  QXMemStream stream(nullptr, kBlock, false, true);
  if (!QXFontService_NS::ext::makeConformingSubsetFont(font, gids, stream)) return false;
  out.bytes = bytesOf(stream);
  return true;
}

bool writeConformingWebFont(const FS_FontInfo& font, const Gids& gids, FormResult& out) {
  QXMemStream stream(nullptr, kBlock, false, true);
  if (!QXFontService_NS::ext::makeConformingWebFont(font, gids, stream)) return false;
  out.bytes = bytesOf(stream);
  return true;
}

bool writeType1(const FS_FontInfo& font, const Gids& codes, FormResult& out) {
  out.pages = type1Pages(font, codes);
  if (!out.pages.empty()) out.bytes = out.pages.front().program;
  return !out.pages.empty();
}

bool writeStream(const FS_FontInfo& font, const Gids&, FormResult& out) {
  if (font.isType1Font()) {
    out.pages = {wholeType1(font)};
    out.bytes = out.pages.front().program;
    return true;
  }
  QXMemStream stream(nullptr, kBlock, false, true);
  if (!font.getEmbedFontStream(stream)) return false;
  out.bytes = bytesOf(stream);
  return true;
}

/// Keeps the outlines that the service hands over glyph by glyph.
class GlyphStreams final : public FS_TTGlyphMap {
 public:
  QXMemStream* getGlyphStream(unsigned short gid) override {
    auto& stream = streams_[gid];
    if (!stream) stream = std::make_unique<QXMemStream>(nullptr, kGlyphBlock, false, true);
    return stream.get();
  }

  std::map<unsigned short, std::string> bytes() {
    std::map<unsigned short, std::string> all;
    for (const auto& [gid, stream] : streams_) all[gid] = bytesOf(*stream);
    return all;
  }

 private:
  std::map<unsigned short, std::unique_ptr<QXMemStream>> streams_;
};

bool writePsGlyphs(const FS_FontInfo& font, const Gids& gids, FormResult& out) {
  QXMemStream stream(nullptr, kBlock, false, true);
  GlyphStreams glyphs;
  if (!font.getPSEmbedFont(gids, stream, glyphs)) return false;
  out.bytes = bytesOf(stream);
  out.glyphFiles = glyphs.bytes();
  return true;
}

bool writeCidPostScript(const FS_FontInfo& font, const Gids& gids, FormResult& out) {
  CidPostScript resource = cidPostScript(font, gids);
  out.bytes = std::move(resource.text);
  out.leftOut = std::move(resource.blank);
  return true;
}

bool isOpenType(const FS_FontInfo& font) {
  const int type = font.getFontFileType2();
  return type == QXFontService_NS::FS_FILETYPE_OPENTYPE ||
         type == QXFontService_NS::FS_FILETYPE_OPENTYPE_CID;
}

/// Fonts whose outlines are in `CFF `, whatever their files are called.
bool isCff(const FS_FontInfo& font) {
  return isOpenType(font) || QXFontService_NS::ext::hasCffOutlines(font);
}

/// Fonts whose outlines are in `glyf`.
bool isTrueType(const FS_FontInfo& font) {
  return font.isTrueTypeFont() && !isCff(font);
}

bool isSfnt(const FS_FontInfo& font) {
  return font.isTrueTypeFont();
}

/// Fonts with a font program beside their metrics.
bool isType1(const FS_FontInfo& font) {
  return font.isType1Font() && font.getEmbedStatus() == QXFontService_NS::FS_EMBED_ALLOWED;
}

bool hasStream(const FS_FontInfo& font) {
  return isSfnt(font) || isType1(font);
}

std::string joined(const std::vector<std::string>& names) {
  return fmt::format("{}", fmt::join(names, ", "));
}

}  // namespace

std::size_t sizeOf(const FormResult& result) {
  std::size_t size = result.bytes.size();
  for (std::size_t i = 1; i < result.pages.size(); ++i) size += result.pages[i].program.size();
  for (const auto& [gid, bytes] : result.glyphFiles) size += bytes.size();
  return size;
}

const std::vector<Form>& forms() {
  static const std::vector<Form> all = {
      {"sfnt", "TrueType for PDF", isTrueType, writeBy<&FS_FontInfo::getEmbedFont>},
      {"sfnt-cmap", "the same with its character map", isTrueType,
       writeBy<&FS_FontInfo::getEmbedFontWithCmap>},
      {"sfnt-all", "all tables", isSfnt, writeBy<&FS_FontInfo::makeSubsetFont>, kKeepsIds, false,
       false, writeConformingSubset, true},
      {"svg2", "a font for SVG", isSfnt, writeBy<&FS_FontInfo::getSVG2EmbedFont>, kKeepsIds, false,
       false, nullptr, true},
      {"stream", "the whole font as it is", hasStream, writeStream, kKeepsIds, true},
      {"ps-glyphs", "a folder: the sfnt for PostScript and one file a glyph", isTrueType,
       writePsGlyphs, kKeepsIds, false, true},
      {"cff", "the bare CFF for PDF", isCff, writeBy<&FS_FontInfo::getEmbedFont>,
       NumberedForm::embedFont},
      {"cid-ps", "a CIDFontType 0 for PostScript, without blank glyphs", isOpenType,
       writeCidPostScript, NumberedForm::cidFontType0},
      {"type1", "Type 1 in segments, a file for each page of 256 codes", isType1, writeType1},
      {"woff", "a web font", isSfnt, writeBy<&FS_FontInfo::makeWebFont>, kKeepsIds, false, false,
       writeConformingWebFont, true},
  };
  return all;
}

bool hasForm(const FS_FontInfo& font, const Form& form, bool asSpecified) {
  if (!form.serves(font)) return false;
  const bool isSpecified = asSpecified || form.writeConforming == nullptr;
  const bool isInSuitcase = font.getFontFileType2() == QXFontService_NS::FS_FILETYPE_DFONT;
  return !(form.notOfSuitcases && isSpecified && isInSuitcase);
}

bool writeForm(const FS_FontInfo& font, const Form& form, bool asSpecified, const Gids& gids,
               FormResult& out) {
  const bool isSpecified = asSpecified || form.writeConforming == nullptr;
  return isSpecified ? form.write(font, gids, out) : form.writeConforming(font, gids, out);
}

std::string formNames() {
  std::vector<std::string> names;
  for (const Form& form : forms()) names.emplace_back(form.name);
  return joined(names);
}

std::string formNames(const FS_FontInfo& font, bool asSpecified) {
  std::vector<std::string> names;
  for (const Form& form : forms()) {
    if (hasForm(font, form, asSpecified)) names.emplace_back(form.name);
  }
  return names.empty() ? "none" : joined(names);
}

const Form& formOf(const std::string& name) {
  const auto& all = forms();
  const auto found =
      std::find_if(all.begin(), all.end(), [&](const Form& form) { return name == form.name; });
  if (found != all.end()) return *found;
  throw ToolError(Status::wrongCall, "there is no form '" + name + "'", "forms: " + formNames());
}

}  // namespace qxfont
