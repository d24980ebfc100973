#pragma once

#include <unicode/unistr.h>

#include <map>
#include <vector>

#include "qxfont/typeset/page.h"

namespace qxfont {

/// What the pages use of one face.
struct UsedGlyphs {
  std::size_t face = 0;
  /// Glyph ids with the characters that each stands for where it is met first; none for `.notdef`.
  std::map<unsigned short, icu::UnicodeString> texts;
  /// What the embedded font calls its glyphs, where it does not keep their ids.
  std::map<unsigned short, unsigned short> codes;

  [[nodiscard]] std::vector<unsigned short> gids() const;
  [[nodiscard]] unsigned short codeOf(unsigned short gid) const;
};

/// The faces that pages use, in the order in which they are met.
std::vector<UsedGlyphs> usedGlyphs(const std::vector<Page>& pages);

}  // namespace qxfont
