#include <fmt/format.h>

#include <algorithm>

#include "qxfont/cli/text.h"
#include "qxfont/specimen/section.h"

namespace qxfont {
namespace {

constexpr double kSize = 20;
constexpr double kGap = 5;
constexpr std::size_t kMostFaces = 40;

std::string labelOf(const fs::FS_FontInfo& font) {
  constexpr int kNormalWidth = 5;
  int weight = 0;
  bool italic = false;
  int stretch = 0;
  font.getFontStyle(&weight, &italic, &stretch);
  std::string text = fmt::format("{}{}", weight, italic ? " italic" : "");
  if (stretch != 0 && stretch != kNormalWidth) text += fmt::format(", width {}", stretch);
  return text;
}

/// Its name, where the face has the letters, else a text that it can set.
icu::UnicodeString textFor(const fs::FS_FontInfo& font) {
  const Characters characters = charactersOf(font);
  fs::UnicodeString name = font.getFullFontName(fs::QXLang::LANGID_DEFAULT);
  if (name.isEmpty()) name = familyName(font);
  name = unicode(shown(name));
  if (!name.isEmpty() && !font.isSymbolicFont() && characters.hasAll(name)) return name;
  const std::vector<SampleText> samples = sampleTexts(font, characters);
  return samples.empty() ? icu::UnicodeString() : samples.front().text;
}

void putFace(std::size_t face, const Desk& desk) {
  Sheet& sheet = desk.sheet;
  const fs::FS_FontInfo& font = desk.fonts.font(face);
  const LineBox box = lineBoxOf(font);
  const double height = box.height(kSize) + kGap;
  sheet.need(height);
  sheet.label(labelOf(font), box.ascent * kSize);
  SheetText text = sheet.note("", box.ascent * kSize);
  text.text = textFor(font);
  text.style.face = face;
  text.style.size = kSize;
  sheet.put(text);
  sheet.skip(height);
}

}  // namespace

void weightsSection(const Subject& subject, const Desk& desk) {
  const double first = lineBoxOf(desk.fonts.font(subject.face)).height(kSize) + 2 * kGap;
  desk.sheet.beginSection("Weights", first);
  desk.sheet.skip(kGap);
  const std::size_t count = std::min(subject.family.size(), kMostFaces);
  for (std::size_t i = 0; i < count; ++i) putFace(subject.family[i], desk);
  if (subject.family.size() > count)
    desk.sheet.row("", fmt::format("and {} faces more", subject.family.size() - count));
}

}  // namespace qxfont
