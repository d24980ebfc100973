#include "type1/type1_printer.h"

#include <algorithm>
#include <memory>

#include "qxcommon/error.h"
#include "qxcommon/lock.h"
#include "qxfontservice/error_codes.h"

#include "common/answer_or.h"
#include "font/contract/font_error.h"
#include "font/contract/outline_lock.h"
#include "type1/maps/glyph_names.h"
#include "type1/metrics_scale.h"
#include "type1/text_metrics.h"
#include "type1/type1.h"

namespace QXFontService_NS {
namespace {

constexpr int kUnitsPerEm = 1000;

UnicodeString textOf(const std::string& bytes) {
  return UnicodeString::fromUTF8(bytes);
}

/// The names of codes on a page of a font program.
class NamesOnPage final : public type1::CodeNames {
 public:
  NamesOnPage(const FS_Type1Printer& program, const Type1CMapArray* pageMap)
      : program_(program), pageMap_(pageMap) {}
  [[nodiscard]] std::string nameOf(unsigned char code) const override {
    return program_.nameOnPage(code, pageMap_);
  }

 private:
  const FS_Type1Printer& program_;
  const Type1CMapArray* pageMap_;
};

}  // namespace

FS_Type1Printer::FS_Type1Printer(const QXUri& uri, FS_FontFolder* folder, FS_Type1* owner)
    : FS_BaseFont(uri, folder), owner_(owner) {}

FS_Type1Printer::~FS_Type1Printer() = default;

bool FS_Type1Printer::isKindOf(unsigned int id) const {
  return id == kClassID || FS_BaseFont::isKindOf(id);
}

bool FS_Type1Printer::isType1Font() const {
  return true;
}
bool FS_Type1Printer::isTrueTypeFont() const {
  return false;
}
bool FS_Type1Printer::isType1OrNoCID(int) const {
  return true;
}
bool FS_Type1Printer::isTrueTypeOrCID(int) const {
  return false;
}

bool FS_Type1Printer::readFont(QXError* error, std::istream* stream) {
  if (stream != nullptr) return readHeader(error, *stream);
  const std::unique_ptr<std::istream> own(fileUri_.getIStream(nullptr, nullptr));
  if (own) return readHeader(error, *own);
  reportFontError(*this, error, FS_ERROR_PRINTER_FONT, {});
  return false;
}

bool FS_Type1Printer::headerRead(QXError* error,
                                 const std::optional<type1::HeaderFailure>& failure) const {
  if (failure) reportFontError(*this, error, failure->code, textOf(failure->detail));
  return !failure;
}

bool FS_Type1Printer::loadFontTables(QXError* error, int, std::istream*) {
  QXMutex guard(&loadLock_);
  if (!loaded_) {
    loadAnswer_ = createFont(error);
    loaded_ = true;
  }
  return loadAnswer_;
}

FT_Face FS_Type1Printer::face() const {
  // Opening the face changes lazy state alone, under the outline lock.
  return const_cast<FS_Type1Printer*>(this)->getFreeTypeFace(0);
}

UnicodeString FS_Type1Printer::getFamilyName(QXLang::LanguageID, int) const {
  return textOf(header_.familyName);
}

UnicodeString FS_Type1Printer::getSubFamilyName(QXLang::LanguageID, int) const {
  return type1::styleName(textOf(header_.fullName), textOf(header_.familyName),
                          textOf(header_.weightName));
}

UnicodeString FS_Type1Printer::getFullFontName(QXLang::LanguageID, int) const {
  return textOf(header_.fullName);
}

UnicodeString FS_Type1Printer::getPostScriptName(QXLang::LanguageID, int) const {
  QXMutex guard(&FS_OutlineLock());
  FT_Face opened = face();
  const char* const name = opened != nullptr ? FT_Get_Postscript_Name(opened) : nullptr;
  return name != nullptr ? UnicodeString::fromUTF8(name) : UnicodeString();
}

int FS_Type1Printer::getFontWeight(int) const {
  return header_.weight;
}

bool FS_Type1Printer::isItalicFont(int) const {
  return header_.italicAngle != 0;
}

unsigned short FS_Type1Printer::getGlyphID(int code, bool vertical, int) const {
  QXMutex guard(&FS_OutlineLock());
  FT_Face opened = face();
  if (opened == nullptr || (vertical && !FT_HAS_VERTICAL(opened))) return FS_NO_GLYPH;
  FT_UInt glyph = FT_Get_Char_Index(opened, static_cast<FT_ULong>(static_cast<unsigned>(code)));
  if (glyph == 0) {
    const std::string name = encodedName(code);
    if (!name.empty()) glyph = FT_Get_Name_Index(opened, name.c_str());
  }
  return glyph == 0 ? FS_NO_GLYPH : static_cast<unsigned short>(glyph);
}

bool FS_Type1Printer::isSymbolicFont(int) const {
  return header_.customEncoding;
}

bool FS_Type1Printer::isFixedWidthFont(int) const {
  return header_.isFixedPitch;
}

unsigned int FS_Type1Printer::getEmbedableCharCount(int) const {
  return countedRecords_;
}

bool FS_Type1Printer::isEmbeddingAllowed(int) const {
  return true;
}

FS_EMBEDSTATUS FS_Type1Printer::getEmbedStatus(int) const {
  return FS_EMBEDSTATUS(0);
}

int FS_Type1Printer::getUnitsPerEm(int) const {
  return kUnitsPerEm;
}

bool FS_Type1Printer::hasPairKerningInfo(bool, int) const {
  QXMutex guard(&FS_OutlineLock());
  FT_Face opened = face();
  return opened != nullptr && FT_HAS_KERNING(opened);
}

float FS_Type1Printer::getPairKerningValue(unsigned short left, unsigned short right, int size,
                                           bool, int) const {
  QXMutex guard(&FS_OutlineLock());
  FT_Face opened = face();
  FT_Vector kerning{};
  if (opened == nullptr || FT_Get_Kerning(opened, left, right, FT_KERNING_UNSCALED, &kerning) != 0)
    return 0;
  return type1::scaledKerning(static_cast<float>(kerning.x), size);
}

bool FS_Type1Printer::loadGlyph(unsigned int glyph, int flags) {
  FT_Face opened = getFreeTypeFace(0);
  return opened != nullptr && FT_Load_Glyph(opened, glyph, flags) == 0;
}

const FS_Type1GlyphRecord* FS_Type1Printer::recordOfCode(int code) const {
  const auto found = recordsByCode_.find(code);
  return found == recordsByCode_.end() ? nullptr : found->second;
}

const FS_Type1GlyphRecord* FS_Type1Printer::recordOfName(std::string_view name) const {
  const auto found = recordsByName_.find(name);
  return found == recordsByName_.end() ? nullptr : found->second;
}

std::string FS_Type1Printer::encodedName(int code) const {
  if (code < 0 || code > 0xFFFF) return {};
  const auto found = encodingMap_.find(static_cast<unsigned short>(code));
  return found == encodingMap_.end() ? std::string() : found->second;
}

/// The first of the maps that gives a name counts, even when the font lacks that glyph.
std::string FS_Type1Printer::nameOnPage(unsigned char code, const Type1CMapArray* pageMap) const {
  const Type1CMapArray* const firstPage =
      owner_ != nullptr ? owner_->Type1CMap::getType1CMapArray(0) : nullptr;
  const bool onFirstPage = pageMap == firstPage;
  if (onFirstPage && owner_ != nullptr && owner_->codesAreItsOwn()) {
    const FS_Type1GlyphRecord* const record = recordOfCode(code);
    if (record != nullptr && !record->name.empty()) return record->name;
  }
  if (pageMap != nullptr) {
    const auto pair = std::find_if(pageMap->begin(), pageMap->end(),
                                   [&](const auto& row) { return row.first == code; });
    if (pair != pageMap->end()) return pair->second;
  }
  std::string name = encodedName(code);
  if (!name.empty() || !onFirstPage) return name;
  const std::string_view standard = type1::standardEncodingName(code);
  return standard == ".notdef" ? std::string() : std::string(standard);
}

bool FS_Type1Printer::writeWanted(const char* codes, int count, const Type1CMapArray* pageMap,
                                  const ProgramWriter& writer) const {
  return QXCommonNS::answerOr(false, [&] {
    const std::unique_ptr<std::istream> program(fileUri_.getIStream(nullptr, nullptr));
    if (!program) return false;
    if (codes == nullptr) return writer(*program, std::nullopt);
    const NamesOnPage names(*this, pageMap);
    const std::vector<unsigned char> wanted(codes, codes + std::max(count, 0));
    return writer(*program, type1::WantedCodes{wanted, &names});
  });
}

}  // namespace QXFontService_NS
