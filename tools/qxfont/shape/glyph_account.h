#pragma once

#include <vector>

#include "qxfont/cli/service.h"
#include "qxfont/shape/layout_tag.h"

namespace qxfont {

/// A glyph of a run while lookups change the run.
struct RunGlyph {
  fs::GlyphIDClassPair pair;
  int cluster = 0;      ///< UTF-16 index of the first character that it stands for
  LayoutTag form = 0;   ///< the feature of its form in a cursive script, or 0
  int component = 0;    ///< of a mark: the part of its ligature, from 1, or 0
  bool hidden = false;  ///< a character that is never seen, such as a joiner
};

using GlyphRun = std::vector<RunGlyph>;

/// The glyphs of a run as the service takes them, each to be worked on.
fs::GlyphIDArray2 glyphsOf(const GlyphRun& run);

/// A glyph that a pass of one lookup over a whole run left.
struct PassedGlyph {
  fs::GlyphIDClassPair pair;
  int standsFor = 1;  ///< how many glyphs of the run; 0 for one that was added behind another
  int passedAt = 0;   ///< for one that a ligature passed over, its index then; else 0
};

std::vector<PassedGlyph> passedGlyphs(const fs::GlyphIDArray2& result);

/// The run after a pass of one lookup over the whole of it: which characters each glyph stands for
/// now, and to which part of a ligature a mark belongs.
/// @param before the run that the pass was given.
GlyphRun accountForPass(const GlyphRun& before, const std::vector<PassedGlyph>& result);

/// The run after a step at one position, [at, end), of which `glyphs` stand there now: as many as
/// `replaced` by what was matched, behind them those that the match passed over.
void accountForStep(GlyphRun& run, int at, int end, const fs::GlyphIDArray& glyphs, int replaced);

}  // namespace qxfont
