#pragma once

#include <cstddef>
#include <vector>

#include "qxfontservice/ext/match.h"

#include "qxfont/cli/options.h"
#include "qxfont/specimen/characters.h"
#include "qxfont/specimen/sample_text.h"
#include "qxfont/specimen/sheet.h"
#include "qxfont/typeset/font_set.h"
#include "qxfont/typeset/line_setter.h"

namespace qxfont {

/// A font of the sheet, and what was found out about it.
struct Subject {
  FontOptions asked;
  fs::ext::MatchReport match;
  std::size_t face = 0;
  std::size_t labelFace = 0;
  std::vector<std::size_t> family;  ///< its faces, this one among them
  Characters characters;
  std::vector<SampleText> samples;  ///< the first is the sentence of the sheet; may be empty
};

/// What sections work with.
struct Desk {
  const FontSet& fonts;
  LineSetter& setter;
  Sheet& sheet;
};

/// Sets one part of the sheet of a font; a part that has nothing to show sets nothing.
using Section = void (*)(const Subject& subject, const Desk& desk);

void headingSection(const Subject& subject, const Desk& desk);
void matchSection(const Subject& subject, const Desk& desk);
void weightsSection(const Subject& subject, const Desk& desk);
void waterfallSection(const Subject& subject, const Desk& desk);
void scriptsSection(const Subject& subject, const Desk& desk);
void featuresSection(const Subject& subject, const Desk& desk);
void charactersSection(const Subject& subject, const Desk& desk);
void formsSection(const Subject& subject, const Desk& desk);

/// All of them, in the order of the sheet.
const std::vector<Section>& sections();

/// The family of a face as itself tells it, else as the document that brings it along does.
icu::UnicodeString familyName(const fs::FS_FontInfo& font);

/// "12,345".
std::string grouped(std::size_t number);

/// How far a face reaches above and below the baseline, in em, as rows of its text want it.
struct LineBox {
  double ascent = 0;
  double descent = 0;

  [[nodiscard]] double height(double size) const { return (ascent + descent) * size; }
};

/// Takes what the face says, within what makes sense on a page.
LineBox lineBoxOf(const fs::FS_FontInfo& font);

}  // namespace qxfont
