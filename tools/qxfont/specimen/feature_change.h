#pragma once

#include <unicode/unistr.h>

#include <functional>
#include <optional>
#include <vector>

#include "qxfont/specimen/characters.h"
#include "qxfont/specimen/feature_table.h"
#include "qxfont/specimen/sample_text.h"
#include "qxfont/typeset/line_setter.h"

namespace qxfont {

/// A text in which a feature shows.
struct FeatureChange {
  LayoutTag tag = 0;
  const char* name = "";
  icu::UnicodeString text;
  bool isUsual = false;  ///< on in all text, so that "before" is without it
};

/// Tells whether a feature changes anything in a text.
class FeatureProbe {
 public:
  /// @param setter which outlives the probe.
  FeatureProbe(LineSetter& setter, std::size_t face) : setter_(setter), face_(face) {}

  [[nodiscard]] bool changes(const icu::UnicodeString& text, LayoutTag tag) const;

 private:
  LineSetter& setter_;
  std::size_t face_;
};

/// Those of a text's words that a test takes, as many as fit beside each other; the whole text
/// where it takes none of them alone.
/// @param takes a word.
icu::UnicodeString wordsThat(const icu::UnicodeString& text,
                             const std::function<bool(const icu::UnicodeString&)>& takes);

/// Looks for a text in which a feature changes something: its own, then the sentences of the
/// scripts that the face can set; nullopt where nothing changes.
std::optional<FeatureChange> findChange(const KnownFeature& feature, const Characters& characters,
                                        const std::vector<SampleText>& samples,
                                        const FeatureProbe& probe);

}  // namespace qxfont
