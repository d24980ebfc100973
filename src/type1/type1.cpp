#include "type1/type1.h"

#include <memory>
#include <set>

#include "qxcommon/error.h"
#include "qxcommon/mem_stream.h"
#include "qxfontservice/enum_log_font_ex.h"
#include "qxfontservice/error_codes.h"
#include "qxfontservice/new_text_metric_ex.h"

#include "common/answer_or.h"
#include "font/contract/font_error.h"
#include "font/contract/font_file_options.h"
#include "font/contract/font_key_sink.h"
#include "font/contract/type1_partner.h"
#include "type1/maps/glyph_list.h"
#include "type1/type1_pfa.h"
#include "type1/type1_pfb.h"

namespace QXFontService_NS {
namespace {

constexpr int kUnitsPerEm = 1000;
constexpr int kSegments = 2;

FS_Type1Printer* openProgram(const QXUri& metricFile, FS_FontFolder* folder, FS_Type1* owner) {
  const Type1Partner program = type1PartnerOf(metricFile);
  if (program.type == FS_FILETYPE_TYPE1_PFB) return new FS_Type1PFB(program.file, folder, owner);
  if (program.type == FS_FILETYPE_TYPE1_PFA) return new FS_Type1PFA(program.file, folder, owner);
  return nullptr;
}

}  // namespace

FS_Type1::FS_Type1(const QXUri& uri, FS_FontFolder* folder)
    : FS_BaseFont(uri, folder), printer_(openProgram(uri, folder, this)) {}

FS_Type1::~FS_Type1() = default;

bool FS_Type1::isKindOf(unsigned int id) const {
  return id == kClassID || FS_BaseFont::isKindOf(id);
}

bool FS_Type1::isType1Font() const {
  return true;
}
bool FS_Type1::isTrueTypeFont() const {
  return false;
}
bool FS_Type1::isType1OrNoCID(int) const {
  return true;
}
bool FS_Type1::isTrueTypeOrCID(int) const {
  return false;
}

bool FS_Type1::parsePrinterFont(QXError* error) {
  if (!printer_) return true;
  if (printer_->readFont(error, nullptr)) return true;
  printer_ = nullptr;
  return false;
}

bool FS_Type1::loadFontTables(QXError* error, int, std::istream*) {
  QXMutex guard(&loadLock_);
  if (!loaded_) {
    indexMetrics();
    loadAnswer_ = load(error);
    loaded_ = true;
  }
  return loadAnswer_;
}

void FS_Type1::ensureLoaded() const {
  QXError error;
  // Loading changes lazy state alone, under its lock.
  const_cast<FS_Type1*>(this)->loadFontTables(&error, 0, nullptr);
}

bool FS_Type1::load(QXError* error) {
  const FS_FontFileOptions* const options = fontEntry();
  if (options != nullptr) {
    directCodes_ = options->skipGlyphnameMapping;
    if (!options->glyphList.isEmpty() && !readGlyphList(error, options->glyphList)) return false;
  }
  // A program of text keeps what its header told: only one in segments has its glyphs read.
  if (printer_ && printer_->getFileKind() == kSegments)
    return printer_->loadFontTables(error, 0, nullptr);
  return true;
}

bool FS_Type1::readGlyphList(QXError* error, const QXUri& uri) {
  hasGlyphList_ = true;
  const std::unique_ptr<std::istream> stream(uri.getIStream(nullptr, nullptr));
  if (!stream) {
    reportFontError(*this, error, FS_ERROR_GLYPHLIST_OPEN, uri.getText());
    return false;
  }
  const bool complete =
      QXCommonNS::answerOr(false, [&] { return type1::readGlyphListFile(*stream, glyphList_); });
  if (!complete) reportFontError(*this, error, FS_ERROR_GLYPHLIST_READ, uri.getText());
  return complete;
}

const std::string* FS_Type1::listedName(int character) const {
  const auto found = glyphList_.find(character);
  return found == glyphList_.end() ? nullptr : &found->second;
}

int FS_Type1::folded(int character) const {
  constexpr int kPrivateUse = 0xF000;
  const bool isPrivate = character >= kPrivateUse && character <= 0xFFFF;
  return isPrivate && isSymbolicFont(0) ? character & ~kPrivateUse : character;
}

void FS_Type1::addStyleKeys(FS_FontKeySink& keys, const FS_FontRef& ref, const QXUri& uri) {
  keys.addFileName(uri, ref, makeFontKey(getFontWeight(0), isItalicFont(0), getFontStretch(0)));
}

void FS_Type1::addNameKeys(FS_FontKeySink& keys, const FS_FontRef& ref) {
  std::set<UnicodeString> names = fontAliases();
  for (const UnicodeString& name : {getFamilyName(QXLang::LANGID_DEFAULT, 0),
                                    getFullFontName(QXLang::LANGID_DEFAULT, 0), postScriptName()})
    if (!name.isEmpty()) names.insert(name);
  keys.addFamilyNames(names, ref,
                      makeFontKey(getFontWeight(0), isItalicFont(0), getFontStretch(0)));
}

bool FS_Type1::getLogFont(FS_EnumLogFontEx& out, int) const {
  out.setWeight(getFontWeight(0));
  out.setItalic(isItalicFont(0));
  const UnicodeString family = getFamilyName(QXLang::LANGID_DEFAULT, 0);
  out.setFaceName(family.isEmpty() ? postScriptName() : family);
  out.setFullName(getFullFontName(QXLang::LANGID_DEFAULT, 0));
  return true;
}

bool FS_Type1::getNewTextMetricEx(FS_NewTextMetricEx& out, int entry) const {
  return getOutlineTextMetrics(out, -kUnitsPerEm, entry);
}

unsigned short FS_Type1::getGlyphID(int code, bool vertical, int entry) const {
  if (!printer_) return FS_NO_GLYPH;
  ensureLoaded();
  return printer_->getGlyphID(code, vertical, entry);
}

bool FS_Type1::isSymbolicFont(int entry) const {
  if (printer_) return printer_->isSymbolicFont(entry);
  return getEncodingScheme(entry) == FS_ENCODING_FONTSPECIFIC;
}

bool FS_Type1::isEmbeddingAllowed(int entry) const {
  return getEmbedStatus(entry) == FS_EMBEDSTATUS(0);
}

FS_EMBEDSTATUS FS_Type1::getEmbedStatus(int) const {
  return FS_EMBEDSTATUS(printer_ ? 0 : 1);
}

bool FS_Type1::hasVerticalGlyph(int) const {
  return false;
}

int FS_Type1::getUnitsPerEm(int) const {
  return kUnitsPerEm;
}

const Type1CMapArray* FS_Type1::getType1CMapArray(unsigned char page, int) {
  return Type1CMap::getType1CMapArray(page);
}

bool FS_Type1::getType1CMapPair(unsigned char page, int i, unsigned char& code, std::string& name,
                                int) {
  return Type1CMap::getType1CMapPair(page, i, code, name);
}

bool FS_Type1::getType1GlyphName(unsigned char page, unsigned char code, std::string& name, int) {
  return Type1CMap::getType1GlyphName(page, code, name);
}

/// A page of which nothing was given out has an empty map, but for the first: there ordinary codes
/// stand for the standard encoding and are written down nowhere.
bool FS_Type1::getType1EmbedFont(unsigned char page, const char* codes, int count, QXMemStream& out,
                                 int& length1, int& length2, int& length3, int) {
  if (!printer_) return false;
  ensureLoaded();
  // The writer walks over the page, which another thread may make longer.
  QXMutex guard(&lock_);
  static const Type1CMapArray nothing;
  const Type1CMapArray* map = Type1CMap::getType1CMapArray(page);
  if (map == nullptr && page != 0) map = &nothing;
  return printer_->writeEmbedStream(codes, count, out, length1, length2, length3, map);
}

bool FS_Type1::getType1FontStream(QXMemStream& out, int& length1, int& length2, int& length3, int) {
  if (!printer_) return false;
  ensureLoaded();
  return printer_->writeEmbedStream(nullptr, 0, out, length1, length2, length3, nullptr);
}

void FS_Type1::setEudcFont(const FS_FontRef& ref, int) {
  eudc_.set(ref);
}

FS_FontRef FS_Type1::getEudcFont(int) const {
  return eudc_.get();
}

FT_Face FS_Type1::getFreeTypeFace(int) {
  return printer_ ? printer_->getFreeTypeFace(0) : nullptr;
}

bool FS_Type1::loadGlyph(unsigned int glyph, int flags) {
  return printer_ && printer_->loadGlyph(glyph, flags);
}

}  // namespace QXFontService_NS
