#pragma once

#include <unicode/unistr.h>

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "qxfont/typeset/page.h"

namespace qxfont {

/// What the pages use of one face, or of one page of codes of a Type 1 face.
struct UsedGlyphs {
  static constexpr int kNoCodePage = -1;

  std::size_t face = 0;
  int codePage = kNoCodePage;
  /// Glyph ids with the characters that each stands for where it is met first; none for `.notdef`.
  std::map<unsigned short, icu::UnicodeString> texts;
  /// What the embedded font calls its glyphs, where it does not keep their ids.
  std::map<unsigned short, unsigned short> codes;

  /// Their widths in em, as the pages are set with them.
  std::map<unsigned short, double> widths;

  [[nodiscard]] std::vector<unsigned short> gids() const;
  [[nodiscard]] unsigned short codeOf(unsigned short gid) const;
  /// Whether a glyph of the pages is among them.
  [[nodiscard]] bool has(const Glyph& glyph) const;
  /// What shows a glyph, as hexadecimal digits: two bytes, of a page of codes one.
  [[nodiscard]] std::string hexOf(unsigned short gid) const;
};

/// The place in `fonts` of those that have a glyph; their number for none.
std::size_t indexOf(const std::vector<UsedGlyphs>& fonts, const Glyph& glyph);

/// Takes a Type 1 face apart by its pages of codes, in their order.
std::vector<UsedGlyphs> splitByCodePage(const UsedGlyphs& used);

/// The faces that pages use, in the order in which they are met.
std::vector<UsedGlyphs> usedGlyphs(const std::vector<Page>& pages);

}  // namespace qxfont
