#include "type1/type1_afm.h"

#include <algorithm>
#include <memory>

#include "qxfontservice/error_codes.h"
#include "qxfontservice/new_text_metric_ex.h"

#include "font/contract/font_error.h"
#include "type1/afm/afm_parser.h"
#include "type1/metrics_scale.h"
#include "type1/text_metrics.h"

namespace QXFontService_NS {
namespace {

UnicodeString textOf(const std::string& bytes) {
  return UnicodeString::fromUTF8(bytes);
}

/// A height of letters in em; below 1 the file does not tell.
float letterHeight(float value) {
  return value < 1 ? 0 : value / type1::kEm;
}

}  // namespace

FS_Type1AFM::FS_Type1AFM(const QXUri& uri, FS_FontFolder* folder) : FS_Type1(uri, folder) {}

FS_Type1AFM::~FS_Type1AFM() = default;

unsigned int FS_Type1AFM::getClassID() const {
  return kClassID;
}

bool FS_Type1AFM::isKindOf(unsigned int id) const {
  return id == kClassID || FS_Type1::isKindOf(id);
}

UnicodeString FS_Type1AFM::getClassName() const {
  return u"FS_Type1AFM";
}

FS_FontFileType FS_Type1AFM::getFontFileType(int) const {
  return FS_FILETYPE_TYPE1_AFM;
}

bool FS_Type1AFM::readFont(QXError* error, std::istream* stream) {
  std::unique_ptr<std::istream> own;
  if (stream == nullptr) {
    own.reset(fileUri_.getIStream(nullptr, nullptr));
    stream = own.get();
  }
  if (stream == nullptr) {
    reportFontError(*this, error, FS_ERROR_FONT_READ, {});
    return false;
  }
  stream->clear();
  stream->seekg(0);  // whoever looked for the kind of the file may have read of it
  type1::AfmParser parser(metrics_);
  if (!parser.parse(*stream)) {
    reportFontError(*this, error, FS_ERROR_FONT_FILE, textOf(parser.failure()));
    return false;
  }
  deriveMetrics();
  standardMetrics_ = type1::findStandardMetrics(postScriptName());
  parsePrinterFont(error);  // without its program the font still has its metrics
  return true;
}

void FS_Type1AFM::deriveMetrics() {
  externalLeading_ = std::max(metrics_.boxHeight() - type1::kEm, 0.0F);
  float sum = 0;
  for (const AFMCharMetric& metric : metrics_.charMetrics) {
    maxWidth_ = std::max(maxWidth_, static_cast<float>(metric.width));
    sum += static_cast<float>(metric.width);
  }
  if (metrics_.charCount() > 0) avgWidth_ = sum / static_cast<float>(metrics_.charCount());
}

void FS_Type1AFM::indexMetrics() {
  for (const AFMCharMetric& metric : metrics_.charMetrics) {
    if (!metric.name.empty()) metricsByName_.emplace(metric.name, &metric);
    if (metric.code != -1) metricsByCode_.emplace(metric.code, &metric);
  }
}

UnicodeString FS_Type1AFM::postScriptName() const {
  return textOf(metrics_.fontName);
}

UnicodeString FS_Type1AFM::getFamilyName(QXLang::LanguageID, int) const {
  return textOf(metrics_.familyName);
}

UnicodeString FS_Type1AFM::getSubFamilyName(QXLang::LanguageID, int) const {
  return type1::styleName(textOf(metrics_.fullName), textOf(metrics_.familyName),
                          textOf(metrics_.weightName));
}

UnicodeString FS_Type1AFM::getFullFontName(QXLang::LanguageID, int) const {
  return textOf(metrics_.fullName);
}

UnicodeString FS_Type1AFM::getPostScriptName(QXLang::LanguageID, int) const {
  return postScriptName();
}

UnicodeString FS_Type1AFM::getCopyright(QXLang::LanguageID, int) const {
  return textOf(metrics_.copyright);
}

int FS_Type1AFM::getFontWeight(int) const {
  return metrics_.weight;
}

bool FS_Type1AFM::isItalicFont(int) const {
  return metrics_.italicAngle != 0;
}

bool FS_Type1AFM::isFixedWidthFont(int) const {
  return metrics_.isFixedPitch;
}

float FS_Type1AFM::getXHeight(int) const {
  return letterHeight(metrics_.xHeight);
}

float FS_Type1AFM::getCapHeight(int) const {
  return letterHeight(metrics_.capHeight);
}

float FS_Type1AFM::getTypoAscender(int) const {
  return metrics_.ascender / type1::kEm;
}

float FS_Type1AFM::getTypoDescender(int) const {
  return metrics_.descender / type1::kEm;
}

unsigned int FS_Type1AFM::getEmbedableCharCount(int) const {
  return static_cast<unsigned int>(metrics_.charCount());
}

FS_EncodingScheme FS_Type1AFM::getEncodingScheme(int) const {
  return metrics_.encodingScheme;
}

bool FS_Type1AFM::getOutlineTextMetrics(FS_NewTextMetricEx& out, int size, int entry) const {
  type1::TextMetrics metrics;
  metrics.box = metrics_.fontBBox;
  metrics.ascent = metrics_.fontBBox[3];
  metrics.descent = -metrics_.fontBBox[1];
  metrics.italicAngle = metrics_.italicAngle;
  if (!printer_ && standardMetrics_ != nullptr) metrics.takeStandard(*standardMetrics_);
  metrics.capHeight = metrics_.capHeight;
  metrics.externalLeading = externalLeading_;
  metrics.avgWidth = avgWidth_;
  metrics.maxWidth = maxWidth_;
  metrics.isFixedPitch = metrics_.isFixedPitch;
  metrics.isSymbolic = isSymbolicFont(entry);
  metrics.fill(out, size);
  out.setFileOptions(fontEntry());
  return true;
}

const AFMCharMetric* FS_Type1AFM::metricOfName(std::string_view name) const {
  const auto found = metricsByName_.find(name);
  return found == metricsByName_.end() ? nullptr : found->second;
}

std::optional<int> FS_Type1AFM::metricCode(const std::string& name) const {
  const AFMCharMetric* const metric = metricOfName(name);
  if (metric == nullptr) return std::nullopt;
  return metric->code;
}

bool FS_Type1AFM::hasOwnCode(int code) const {
  return metricsByCode_.count(code) != 0;
}

std::optional<float> FS_Type1AFM::widthOfName(std::string_view name) const {
  const AFMCharMetric* const metric = metricOfName(name);
  if (metric == nullptr) return std::nullopt;
  return static_cast<float>(metric->width);
}

std::optional<float> FS_Type1AFM::widthOfCode(int code) const {
  const auto found = metricsByCode_.find(code);
  if (found == metricsByCode_.end()) return std::nullopt;
  return static_cast<float>(found->second->width);
}

float FS_Type1AFM::getTextWidth(const UnicodeString& text, int size, bool, int* firstMissing,
                                int) const {
  ensureLoaded();
  return type1::scaledToSize(widthByNames(text, firstMissing), size, metrics_.boxHeight());
}

bool FS_Type1AFM::hasPairKerningInfo(bool vertical, int entry) const {
  if (!metrics_.kernPairs.empty()) return true;
  return printer_ && printer_->hasPairKerningInfo(vertical, entry);
}

float FS_Type1AFM::getPairKerningValue(unsigned short left, unsigned short right, int size, bool,
                                       int) const {
  const auto found = metrics_.kernPairs.find({left, right});
  return found == metrics_.kernPairs.end() ? 0 : type1::scaledKerning(found->second, size);
}

}  // namespace QXFontService_NS
