#include "type1/type1_pfm.h"

#include <memory>

#include "qxcommon/error.h"
#include "qxfontservice/error_codes.h"
#include "qxfontservice/new_text_metric_ex.h"

#include "font/contract/font_error.h"
#include "type1/maps/encoding_scheme_name.h"
#include "type1/metrics_scale.h"
#include "type1/pfm/char_set.h"
#include "type1/pfm/pfm_parser.h"
#include "type1/text_metrics.h"

namespace QXFontService_NS {
namespace {

constexpr unsigned kPitchBit = 0x01;
constexpr unsigned kFamilyBits = 0x70, kSerifFamily = 0x10, kScriptFamily = 0x40;
constexpr unsigned char kAnsiCharSet = 0, kSymbolCharSet = 2;

}  // namespace

FS_Type1PFM::FS_Type1PFM(const QXUri& uri, FS_FontFolder* folder) : FS_Type1(uri, folder) {}

FS_Type1PFM::~FS_Type1PFM() = default;

unsigned int FS_Type1PFM::getClassID() const {
  return kClassID;
}

bool FS_Type1PFM::isKindOf(unsigned int id) const {
  return id == kClassID || FS_Type1::isKindOf(id);
}

UnicodeString FS_Type1PFM::getClassName() const {
  return u"FS_Type1PFM";
}

FS_FontFileType FS_Type1PFM::getFontFileType(int) const {
  return FS_FILETYPE_TYPE1_PFM;
}

bool FS_Type1PFM::readFont(QXError* error, std::istream* stream) {
  std::unique_ptr<std::istream> own;
  if (stream == nullptr) {
    own.reset(fileUri_.getIStream(nullptr, nullptr));
    stream = own.get();
  }
  const bool correctsRange = error == nullptr || error->getErrorCode() == 0;
  const std::optional<const char*> failure =
      stream != nullptr ? type1::readPfm(*stream, correctsRange, metrics_) : "";
  if (failure) {
    reportFontError(*this, error, FS_ERROR_FONT_READ, UnicodeString(*failure));
    return false;
  }
  standardMetrics_ = type1::findStandardMetrics(postScriptName());
  return parsePrinterFont(error) || standardMetrics_ != nullptr;
}

void FS_Type1PFM::indexMetrics() {}  // they are by code already

UnicodeString FS_Type1PFM::decoded(const std::string& bytes) const {
  return type1::decodeCharSet(metrics_.charSet, bytes);
}

UnicodeString FS_Type1PFM::postScriptName() const {
  return decoded(metrics_.fontName);
}

UnicodeString FS_Type1PFM::getFamilyName(QXLang::LanguageID, int) const {
  return decoded(metrics_.faceName);
}

UnicodeString FS_Type1PFM::getSubFamilyName(QXLang::LanguageID lang, int entry) const {
  return printer_ ? printer_->getSubFamilyName(lang, entry) : UnicodeString();
}

UnicodeString FS_Type1PFM::getFullFontName(QXLang::LanguageID lang, int entry) const {
  const UnicodeString full = printer_ ? printer_->getFullFontName(lang, entry) : UnicodeString();
  return full.isEmpty() ? decoded(metrics_.faceName) : full;
}

UnicodeString FS_Type1PFM::getPostScriptName(QXLang::LanguageID, int) const {
  return postScriptName();
}

UnicodeString FS_Type1PFM::getCopyright(QXLang::LanguageID, int) const {
  return decoded(metrics_.copyright);
}

int FS_Type1PFM::getFontWeight(int) const {
  return metrics_.weight;
}

bool FS_Type1PFM::isItalicFont(int) const {
  return metrics_.italic;
}

bool FS_Type1PFM::isFixedWidthFont(int) const {
  return (metrics_.pitchAndFamily & kPitchBit) == 0;
}

bool FS_Type1PFM::isSerifLikeFont(int) const {
  return (metrics_.pitchAndFamily & kFamilyBits) == kSerifFamily;
}

bool FS_Type1PFM::isScriptLikeFont(int) const {
  return (metrics_.pitchAndFamily & kFamilyBits) == kScriptFamily;
}

float FS_Type1PFM::getXHeight(int) const {
  return metrics_.xHeightRatio;
}

unsigned int FS_Type1PFM::getEmbedableCharCount(int entry) const {
  if (printer_) {
    ensureLoaded();
    return printer_->getEmbedableCharCount(entry);
  }
  const int count = metrics_.lastChar - metrics_.firstChar + 1;
  return count > 0 ? static_cast<unsigned int>(count) : 0;
}

FS_EncodingScheme FS_Type1PFM::getEncodingScheme(int) const {
  if (printer_) return type1::encodingSchemeOf(printer_->header().encodingName);
  if (metrics_.charSet == kAnsiCharSet) return FS_ENCODING_WINANSI;
  if (metrics_.charSet == kSymbolCharSet) return FS_ENCODING_FONTSPECIFIC;
  return FS_ENCODING_OTHER;
}

bool FS_Type1PFM::getOutlineTextMetrics(FS_NewTextMetricEx& out, int size, int entry) const {
  type1::TextMetrics metrics;
  if (printer_) {
    const type1::ProgramHeader& header = printer_->header();
    metrics.box = header.fontBBox;
    metrics.ascent = header.fontBBox[3];
    metrics.descent = -header.fontBBox[1];
    metrics.italicAngle = header.italicAngle;
  } else if (standardMetrics_ != nullptr) {
    metrics.takeStandard(*standardMetrics_);
  }
  metrics.internalLeading = metrics_.internalLeading;
  metrics.em = metrics.box[3] - metrics.box[1] - metrics_.internalLeading;
  metrics.avgWidth = metrics_.avgWidth;
  metrics.maxWidth = metrics_.maxWidth;
  metrics.isFixedPitch = isFixedWidthFont(entry);
  metrics.isSymbolic = isSymbolicFont(entry);
  metrics.family = metrics_.pitchAndFamily & kFamilyBits;
  metrics.fill(out, size);
  out.setFileOptions(fontEntry());
  return true;
}

// By name and code the font program tells; without one the metrics know codes alone.

std::optional<int> FS_Type1PFM::metricCode(const std::string& name) const {
  const FS_Type1GlyphRecord* const record = printer_ ? printer_->recordOfName(name) : nullptr;
  if (record == nullptr) return std::nullopt;
  return record->code;
}

bool FS_Type1PFM::hasOwnCode(int code) const {
  if (printer_) return printer_->recordOfCode(code) != nullptr;
  return code >= metrics_.firstChar && code <= metrics_.lastChar;
}

std::optional<float> FS_Type1PFM::widthOfName(std::string_view name) const {
  const FS_Type1GlyphRecord* const record = printer_ ? printer_->recordOfName(name) : nullptr;
  if (record == nullptr) return std::nullopt;
  return static_cast<float>(record->width);
}

std::optional<float> FS_Type1PFM::widthOfCode(int code) const {
  const FS_Type1GlyphRecord* const record = printer_ ? printer_->recordOfCode(code) : nullptr;
  if (record == nullptr) return std::nullopt;
  return static_cast<float>(record->width);
}

/// Standard fonts are measured by their table, whatever a program beside it says.
bool FS_Type1PFM::measuresCodes() const {
  return !printer_ || (standardMetrics_ != nullptr && getEncodingScheme(0) != FS_ENCODING_OTHER);
}

float FS_Type1PFM::widthByCodes(const UnicodeString& text, int* firstMissing) const {
  type1::CharSetEncoder encoder(metrics_.charSet);
  if (firstMissing != nullptr) *firstMissing = encoder.isOpen() ? -1 : 0;
  if (!encoder.isOpen()) return 0;
  float sum = 0;
  for (int i = 0; i < text.length(); i = text.moveIndex32(i, 1)) {
    const std::optional<std::uint8_t> code = encoder.encode(text.char32At(i));
    const bool inside = code && *code >= metrics_.firstChar && *code <= metrics_.lastChar;
    const std::size_t index = inside ? std::size_t{*code} - metrics_.firstChar : 0;
    if (inside && index < metrics_.widths.size()) {
      sum += static_cast<float>(metrics_.widths[index]);
    } else if (!inside && firstMissing != nullptr && *firstMissing < 0) {
      *firstMissing = i;
    }
  }
  return sum;
}

float FS_Type1PFM::getTextWidth(const UnicodeString& text, int size, bool, int* firstMissing,
                                int) const {
  ensureLoaded();
  const float height = printer_ ? printer_->header().boxHeight() : metrics_.ascent;
  const float sum =
      measuresCodes() ? widthByCodes(text, firstMissing) : widthByNames(text, firstMissing);
  return type1::scaledToSize(sum, size, height);
}

bool FS_Type1PFM::hasPairKerningInfo(bool vertical, int entry) const {
  if (!metrics_.kernPairs.empty()) return true;
  return printer_ && printer_->hasPairKerningInfo(vertical, entry);
}

float FS_Type1PFM::getPairKerningValue(unsigned short left, unsigned short right, int size, bool,
                                       int) const {
  if (left > 0xFF || right > 0xFF) return 0;
  const auto found =
      metrics_.kernPairs.find({static_cast<std::uint8_t>(left), static_cast<std::uint8_t>(right)});
  if (found == metrics_.kernPairs.end()) return 0;
  return type1::scaledKerning(static_cast<float>(found->second), size);
}

}  // namespace QXFontService_NS
