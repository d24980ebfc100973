#include "pool/config/read_file_options.h"

#include <unicode/locid.h>

#include <array>
#include <cfloat>
#include <memory>

#include "qxcommon/unicode_range.h"
#include "qxcommon/value.h"

#include "pool/config/config_report.h"
#include "pool/config/config_values.h"

namespace QXFontService_NS::config {
namespace {

using QXCommonNS::QXUnicodeRange;
using QXCommonNS::QXUtil;
using QXCommonNS::QXValue;

bool isBareName(const UnicodeString& value) {
  return QXUri(value, QXCommonNS::URISTR_USER).getFileName() == value;
}

UnicodeString extensionOf(const UnicodeString& name) {
  return QXUri(name, QXCommonNS::URISTR_USER).getExtension();
}

UnicodeString withExtension(const UnicodeString& name, const char16_t* extension) {
  QXUri uri(name, QXCommonNS::URISTR_USER);
  uri.setExtension(UnicodeString(extension));
  return uri.getFileName();
}

FS_FontFileOptions& optionsOf(FS_FontFolder& folder, const UnicodeString& name) {
  return folder.fileOptions[fileKey(name)];
}

/// The metric files of one Type 1 font: options of the one hold for the other.
struct MetricPair {
  UnicodeString afm;
  UnicodeString pfm;
};

/// The pair that `file` belongs to, or nothing for other kinds of files.
bool pairOf(const UnicodeString& file, MetricPair& out) {
  const UnicodeString key = fileKey(file);
  const UnicodeString extension = extensionOf(key);
  if (extension != UnicodeString(u".afm") && extension != UnicodeString(u".pfm")) return false;
  out = {withExtension(key, u".afm"), withExtension(key, u".pfm")};
  return true;
}

/// The pair that the attributes `afm` and `pfm` name. With one of them the other follows from
/// it; with both, neither is looked at, since a configuration is trusted there.
bool readPair(ConfigSource& source, Word element, MetricPair& out) {
  out = {source.attribute(kAfm), source.attribute(kPfm)};
  if (!out.afm.isEmpty() && !out.pfm.isEmpty()) return true;
  if (out.afm.isEmpty() && out.pfm.isEmpty()) return reportEmpty(source, element, kAfm);

  const bool fromAfm = !out.afm.isEmpty();
  const UnicodeString& given = fromAfm ? out.afm : out.pfm;
  if (!isBareName(given)) {
    return reportValue(source, FS_ERROR_NOT_BASE_FILE_NAME, element, fromAfm ? kAfm : kPfm, given);
  }
  if (fromAfm) {
    out.pfm = withExtension(out.afm, u".pfm");
  } else {
    out.afm = withExtension(out.pfm, u".afm");
  }
  return true;
}

/// The boolean attribute of `font-entry`; absent leaves `out`, a bad one is reported.
bool readBoolean(ConfigSource& source, Word attribute, std::optional<bool>& out) {
  const UnicodeString text = source.attribute(attribute);
  if (text.isEmpty()) return true;
  out = booleanOf(text);
  return out || reportValue(source, FS_ERROR_INVALID_VALUE, kFontEntry, attribute, text);
}

bool readSizeAdjust(ConfigSource& source, FS_FontFileOptions& options) {
  const UnicodeString text = source.attribute(kFontSizeAdjust);
  if (text.isEmpty()) return true;
  options.fontSizeAdjust = ratioOf(text);
  if (options.fontSizeAdjust > FLT_EPSILON) return true;
  return reportValue(source, FS_ERROR_INVALID_VALUE, kFontEntry, kFontSizeAdjust, text);
}

bool readUnicodeRange(ConfigSource& source, FS_FontFileOptions& options) {
  const UnicodeString text = source.attribute(kUnicodeRange);
  if (text.isEmpty()) return true;
  const QXValue value(text, QXCommonNS::QXUNIT_NONE);
  auto range = std::make_unique<QXUnicodeRange>();
  const bool valid = range->parseUnicodeRange(value);
  options.range = valid ? std::move(range) : nullptr;
  return valid || reportValue(source, FS_ERROR_INVALID_VALUE, kFontEntry, kUnicodeRange,
                              value.toQuotedString(QXUtil::QUOTE_DOUBLE));
}

void readBaselineAdjust(ConfigSource& source, FS_FontFileOptions& options) {
  const UnicodeString text = source.attribute(kBaselineAdjust);
  if (!text.isEmpty()) options.baselineAdjust = ratioOf(text);
}

void readEntryGlyphList(ConfigSource& source, FS_FontFolder& folder, const UnicodeString& file) {
  const UnicodeString list = source.attribute(kGlyphList);
  MetricPair pair;
  if (list.isEmpty() || !pairOf(file, pair)) return;
  const QXUri uri(folder, list, QXCommonNS::URISTR_USER);
  optionsOf(folder, pair.afm).glyphList = uri;
  optionsOf(folder, pair.pfm).glyphList = uri;
}

bool readEntrySkipMapping(ConfigSource& source, FS_FontFolder& folder, const UnicodeString& file) {
  std::optional<bool> skip;
  if (!readBoolean(source, kSkipGlyphnameMapping, skip)) return false;
  MetricPair pair;
  if (!skip || !pairOf(file, pair)) return true;
  optionsOf(folder, pair.afm).skipGlyphnameMapping = *skip;
  optionsOf(folder, pair.pfm).skipGlyphnameMapping = *skip;
  return true;
}

bool readEntryFlags(ConfigSource& source, FS_FontFileOptions& options) {
  std::optional<bool> exclude;
  if (!readBoolean(source, kFontExclude, exclude)) return false;
  if (exclude) options.exclude = *exclude;
  std::optional<bool> useZero;
  if (!readBoolean(source, kUseZeroGlyphId, useZero)) return false;
  if (useZero) options.useZeroGlyphId = *useZero;
  return true;
}

/// 1940 for the first of the pair that has a glyph list already, else nothing.
bool reportListTwice(ConfigSource& source, FS_FontFolder& folder, const MetricPair& pair) {
  if (!optionsOf(folder, pair.afm).glyphList.isEmpty()) {
    return reportValue(source, FS_ERROR_ALREADY_REGISTERED, kGlyphList, kAfm, pair.afm);
  }
  if (!optionsOf(folder, pair.pfm).glyphList.isEmpty()) {
    return reportValue(source, FS_ERROR_ALREADY_REGISTERED, kGlyphList, kPfm, pair.pfm);
  }
  return true;
}

}  // namespace

UnicodeString fileKey(UnicodeString name) {
  return name.toLower(icu::Locale::getRoot());
}

bool readFileName(ConfigSource& source, Word element, Word attribute, UnicodeString& out) {
  out = source.attribute(attribute);
  if (out.isEmpty()) return reportEmpty(source, element, attribute);
  if (isBareName(out)) return true;
  return reportValue(source, FS_ERROR_NOT_BASE_FILE_NAME, element, attribute, out);
}

bool readFontEntry(ConfigSource& source, FS_FontFolder& folder) {
  UnicodeString file;
  if (!readFileName(source, kFontEntry, kFile, file)) return false;
  FS_FontFileOptions& options = optionsOf(folder, file);
  if (!readSizeAdjust(source, options)) return false;
  if (!readUnicodeRange(source, options)) return false;
  readBaselineAdjust(source, options);
  readEntryGlyphList(source, folder, file);
  if (!readEntrySkipMapping(source, folder, file)) return false;
  return readEntryFlags(source, options);
}

bool readFontExclude(ConfigSource& source, FS_FontFolder& folder) {
  UnicodeString file;
  if (!readFileName(source, kFontExclude, kFile, file)) return false;
  optionsOf(folder, file).exclude = true;
  return true;
}

bool readUseZeroGlyphId(ConfigSource& source, FS_FontFolder& folder) {
  UnicodeString file;
  if (!readFileName(source, kUseZeroGlyphId, kFile, file)) return false;
  optionsOf(folder, file).useZeroGlyphId = true;
  return true;
}

bool readGlyphList(ConfigSource& source, FS_FontFolder& folder) {
  UnicodeString file;
  MetricPair pair;
  if (!readFileName(source, kGlyphList, kFile, file)) return false;
  if (!readPair(source, kGlyphList, pair)) return false;
  if (!reportListTwice(source, folder, pair)) return false;
  const QXUri uri(folder, file, QXCommonNS::URISTR_USER);
  optionsOf(folder, pair.afm).glyphList = uri;
  optionsOf(folder, pair.pfm).glyphList = uri;
  return true;
}

bool readSkipGlyphnameMapping(ConfigSource& source, FS_FontFolder& folder) {
  MetricPair pair;
  if (!readPair(source, kSkipGlyphnameMapping, pair)) return false;
  optionsOf(folder, pair.afm).skipGlyphnameMapping = true;
  optionsOf(folder, pair.pfm).skipGlyphnameMapping = true;
  return true;
}

}  // namespace QXFontService_NS::config
