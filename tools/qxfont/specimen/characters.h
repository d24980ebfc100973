#pragma once

#include <unicode/unistr.h>

#include <vector>

#include "qxfontservice/font_info.h"

namespace qxfont {

/// The characters that a face has, whatever its kind.
class Characters {
 public:
  Characters() = default;
  /// @param codes rising.
  explicit Characters(std::vector<int> codes) : codes_(std::move(codes)) {}

  [[nodiscard]] const std::vector<int>& codes() const { return codes_; }
  [[nodiscard]] bool has(int codePoint) const;
  /// Whether it has each character of a text; blanks, joiners and their like do not count.
  [[nodiscard]] bool hasAll(const icu::UnicodeString& text) const;

 private:
  std::vector<int> codes_;
};

/// Asks a face, which takes a moment.
Characters charactersOf(const QXFontService_NS::FS_FontInfo& font);

/// Whether there is something to be seen of a character: no control, blank or joiner.
bool isSeen(int codePoint);

/// What labels and numbers are written with: the letters of English, digits, some signs.
const icu::UnicodeString& labelLetters();

}  // namespace qxfont
