#include "pool/config/read_config.h"

#include <array>
#include <span>

#include "pool/config/config_report.h"
#include "pool/config/config_values.h"

namespace QXFontService_NS::config {
namespace {

constexpr std::array kNameModes = {Choice{kDefault, false}, Choice{kWindows, true},
                                   Choice{kWindowsName, true}};
constexpr std::array kMetricsModes = {Choice{kTypographic, false}, Choice{kWindows, true}};
constexpr std::array kSwitches = {Choice{kDisable, false}, Choice{kEnable, true}};

/// Reads the root element: its attributes, then its children in any order but for the few that
/// may stand once or not behind others.
class RootReader {
 public:
  RootReader(ConfigSource& source, const char* homeEnvName, ConfigTarget target)
      : source_(source), homeEnvName_(homeEnvName), target_(target) {}

  void read() {
    readAttributes();
    for (Event event = source_.next(); event != Event::finished; event = source_.next()) {
      if (event == Event::end) {
        if (source_.word() != kFontConfig) throwUnexpectedEnd(source_);
        return;
      }
      if (!readChild(source_.word())) return;
    }
  }

 private:
  ServiceSettings& settings() { return target_.settings; }

  /// A root attribute counts as given even when its value is bad.
  bool given(Word name) const { return !source_.attribute(name).isEmpty(); }

  void readAttributes() {
    nameModeTaken_ = given(kNameProcessingMode);
    metricsModeTaken_ = given(kOtfMetricsMode);
    systemListTaken_ = given(kWindowsRegistry);
    readRootChoice(kNameProcessingMode, kNameModes, kNameProcessingMode, settings().windowsNames);
    // The message names the other attribute: kept, since support tools look for this line.
    readRootChoice(kOtfMetricsMode, kMetricsModes, kNameProcessingMode, settings().windowsMetrics);
    readPreferredFamily();
    readRootChoice(kWindowsRegistry, kSwitches, kWindowsRegistry, settings().systemList);
    settings().systemListAsked =
        systemListTaken_ && choose(source_.attribute(kWindowsRegistry), kSwitches) == true;
  }

  void readRootChoice(Word attribute, std::span<const Choice> choices, Word reportedAs,
                      bool& setting) {
    const UnicodeString text = source_.attribute(attribute);
    if (text.isEmpty()) return;
    if (const auto value = choose(text, choices)) {
      setting = *value;
    } else {
      (void)reportValue(source_, FS_ERROR_INVALID_VALUE, kFontConfig, reportedAs, text);
    }
  }

  void readPreferredFamily() {
    const UnicodeString text = source_.attribute(kUsePreferredFamily);
    if (text.isEmpty()) return;
    if (const auto value = booleanOf(text)) {
      settings().usePreferredFamily = *value;
    } else {
      (void)reportValue(source_, FS_ERROR_INVALID_VALUE, kFontConfig, kUsePreferredFamily, text);
    }
  }

  bool readChild(int word) {
    switch (word) {
      case kFontFolder:
        nameModeTaken_ = true;  // the mode has to be known before any folder
        return readFontFolder(source_, homeEnvName_, target_);
      case kNameProcessingMode:
        takeOnce(nameModeTaken_);
        return readMode(kNameProcessingMode, kNameModes, settings().windowsNames);
      case kOtfMetricsMode:
        takeOnce(metricsModeTaken_);
        return readMode(kOtfMetricsMode, kMetricsModes, settings().windowsMetrics);
      case kWindowsRegistry:
        takeOnce(systemListTaken_);
        return readSystemList();
      case kEudcProcessing:
        takeOnce(eudcTaken_);
        return readEudcProcessing(source_, settings());
      default:
        throwUnexpectedStart(source_);
        return false;
    }
  }

  void takeOnce(bool& taken) {
    if (taken) throwUnexpectedStart(source_);
    taken = true;
  }

  /// An element with a `mode`; without one the setting goes back to its default.
  bool readMode(Word element, std::span<const Choice> choices, bool& setting) {
    const UnicodeString text = source_.attribute(kMode);
    if (text.isEmpty()) {
      setting = false;
    } else if (const auto value = choose(text, choices)) {
      setting = *value;
    } else if (!reportValue(source_, FS_ERROR_INVALID_VALUE, element, kMode, text)) {
      return false;
    }
    return readToEndOf(source_, element);
  }

  bool readSystemList() {
    const UnicodeString text = source_.attribute(kReference);
    if (text.isEmpty()) return reportEmpty(source_, kWindowsRegistry, kReference);
    if (const auto value = choose(text, kSwitches)) {
      settings().systemList = *value;
      settings().systemListAsked = *value;
    } else if (!reportValue(source_, FS_ERROR_INVALID_VALUE, kWindowsRegistry, kReference, text)) {
      return false;
    }
    return readToEndOf(source_, kWindowsRegistry);
  }

  ConfigSource& source_;
  const char* homeEnvName_;
  ConfigTarget target_;
  bool nameModeTaken_ = false;
  bool metricsModeTaken_ = false;
  bool systemListTaken_ = false;
  bool eudcTaken_ = false;
};

}  // namespace

void readConfigFile(ConfigSource& source, const char* homeEnvName, ConfigTarget target) {
  Event event = source.next();
  while (event == Event::end) event = source.next();
  if (event == Event::finished) return;
  if (source.word() != kFontConfig) throwUnexpectedStart(source);
  RootReader(source, homeEnvName, target).read();
}

bool readToEndOf(ConfigSource& source, Word element) {
  switch (source.next()) {
    case Event::start:
      throwUnexpectedStart(source);
      return false;
    case Event::finished:
      return false;
    case Event::end:
      break;
  }
  if (source.word() != element) throwUnexpectedEnd(source);
  return true;
}

}  // namespace QXFontService_NS::config
