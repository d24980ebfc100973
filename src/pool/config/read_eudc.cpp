#include <array>
#include <optional>
#include <utility>

#include "pool/config/config_report.h"
#include "pool/config/config_values.h"
#include "pool/config/read_config.h"

namespace QXFontService_NS::config {
namespace {

constexpr std::array kSwitches = {Choice{kDisable, false}, Choice{kEnable, true}};
constexpr int kBehindLastCode = 0x10000;

QXUri fileOf(const ConfigSource& source, const UnicodeString& path) {
  return QXUri(source.uri(), path, QXCommonNS::URISTR_USER);
}

bool readMapping(ConfigSource& source, ServiceSettings& settings) {
  const UnicodeString text = source.attribute(kMapping);
  if (text.isEmpty()) return true;
  const std::optional<bool> mapping = choose(text, kSwitches);
  if (!mapping) return reportValue(source, FS_ERROR_INVALID_VALUE, kEudcProcessing, kMapping, text);
  settings.eudcMapping = *mapping;
  return true;
}

bool readMap(ConfigSource& source, ServiceSettings& settings) {
  const UnicodeString family = source.attribute(kFamilyName);
  if (family.isEmpty()) return reportEmpty(source, kEudcMap, kFamilyName);
  const UnicodeString path = source.attribute(kFilePath);
  if (path.isEmpty()) return reportEmpty(source, kEudcMap, kFilePath);
  if (!settings.eudcMap.insert({family, fileOf(source, path)}).second &&
      !reportValue(source, FS_ERROR_ALREADY_REGISTERED, kEudcMap, kFamilyName, family)) {
    return false;
  }
  return readToEndOf(source, kEudcMap);
}

/// A code point; one that is out of range is reported and used all the same.
bool readCode(ConfigSource& source, Word attribute, const UnicodeString& text, int& out) {
  const std::optional<int> code = integerOf(text);
  if (!code) return reportValue(source, FS_ERROR_NOT_INTEGER, kEudcRange, attribute, text);
  out = *code;
  if (out >= 1 && out < kBehindLastCode) return true;
  return reportValue(source, FS_ERROR_INVALID_VALUE, kEudcRange, attribute, text);
}

bool readRange(ConfigSource& source, ServiceSettings& settings) {
  const UnicodeString startText = source.attribute(kStart);
  if (startText.isEmpty()) return reportEmpty(source, kEudcRange, kStart);
  int start = 0;
  if (!readCode(source, kStart, startText, start)) return false;
  int end = start;
  const UnicodeString endText = source.attribute(kEnd);
  if (!endText.isEmpty() && !readCode(source, kEnd, endText, end)) return false;

  if (start > end) std::swap(start, end);
  settings.eudcSet.add(start, end);
  settings.eudcRangeConfigured = true;
  return readToEndOf(source, kEudcRange);
}

bool readSystemDefault(ConfigSource& source, ServiceSettings& settings) {
  const UnicodeString path = source.attribute(kFilePath);
  if (path.isEmpty()) return reportEmpty(source, kEudcSystemDefault, kFilePath);
  if (settings.eudcSystemDefault.isEmpty()) {
    settings.eudcSystemDefault = fileOf(source, path);
  } else if (!reportValue(source, FS_ERROR_ALREADY_REGISTERED, kEudcSystemDefault, kFilePath,
                          path)) {
    return false;
  }
  return readToEndOf(source, kEudcSystemDefault);
}

}  // namespace

bool readEudcProcessing(ConfigSource& source, ServiceSettings& settings) {
  if (!readMapping(source, settings)) return false;
  bool defaultRead = false;
  for (Event event = source.next(); event != Event::finished; event = source.next()) {
    const int word = source.word();
    if (event == Event::end) {
      if (word != kEudcProcessing) throwUnexpectedEnd(source);
      return true;
    }
    bool goOn = false;
    if (word == kEudcMap) {
      goOn = readMap(source, settings);
    } else if (word == kEudcRange) {
      goOn = readRange(source, settings);
    } else if (word == kEudcSystemDefault && !defaultRead) {
      defaultRead = true;
      goOn = readSystemDefault(source, settings);
    } else {
      throwUnexpectedStart(source);
    }
    if (!goOn) return false;
  }
  return false;
}

}  // namespace QXFontService_NS::config
