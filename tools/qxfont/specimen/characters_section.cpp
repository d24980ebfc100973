#include <fmt/format.h>

#include "qxfont/specimen/blocks.h"
#include "qxfont/specimen/section.h"

namespace qxfont {
namespace {

constexpr std::size_t kMostBlocks = 8;        // that are shown glyph by glyph
constexpr std::size_t kMostCharacters = 128;  // of each of them
constexpr double kGlyphPart = 0.62;           // of the width of a cell
constexpr double kCellHeight = 1.12;          // in widths of a cell
constexpr double kGap = 16;
constexpr double kTitleSize = 10;

using Blocks = std::vector<BlockCharacters>;

/// A block and its count, in the left or right half of the column.
void putCount(const BlockCharacters& block, bool right, Sheet& sheet) {
  const double half = sheet.contentWidth() / 2;
  SheetText text = sheet.note(block.name, Sheet::kNoteLead);
  text.style.width = half * 0.78;
  if (right) text.x += half;
  sheet.put(text);
  SheetText count = sheet.note(grouped(block.codes.size()), Sheet::kNoteLead);
  count.style.width = half * 0.94;
  if (right) count.x += half;
  count.align = SheetText::Align::end;
  count.style.grey = Sheet::kGrey;
  sheet.put(count);
}

void putCounts(const Blocks& blocks, Sheet& sheet) {
  for (std::size_t i = 0; i < blocks.size(); i += 2) {
    sheet.need(Sheet::kNoteLead);
    putCount(blocks[i], false, sheet);
    if (i + 1 < blocks.size()) putCount(blocks[i + 1], true, sheet);
    sheet.skip(Sheet::kNoteLead);
  }
}

void putRow(const CharacterRow& row, const Subject& subject, const Desk& desk) {
  Sheet& sheet = desk.sheet;
  const double cell = sheet.contentWidth() / CharacterRow::kColumns;
  const double height = cell * kCellHeight;
  const double baseline = height * 0.7;
  sheet.need(height);
  sheet.rule(sheet.content(), 0, sheet.contentWidth(), 0.25, Sheet::kLightGrey);
  sheet.label(fmt::format("U+{:04X}", row.first), baseline);
  for (std::size_t i = 0; i < CharacterRow::kColumns; ++i) {
    if (row.codes[i] == CharacterRow::kNone) continue;
    SheetText glyph = sheet.note("", baseline);
    glyph.text = icu::UnicodeString(static_cast<UChar32>(row.codes[i]));
    glyph.style.face = subject.face;
    glyph.style.size = cell * kGlyphPart;
    glyph.style.width = cell * 0.96;
    glyph.x += static_cast<double>(i) * cell + cell * 0.02;
    glyph.align = SheetText::Align::centre;
    glyph.shrinks = true;
    sheet.put(glyph);
  }
  sheet.skip(height);
}

void putChart(const BlockCharacters& block, const Subject& subject, const Desk& desk) {
  const CharacterChart chart = chartOf(block.codes, kMostCharacters);
  if (chart.rows.empty()) return;
  Sheet& sheet = desk.sheet;
  sheet.need(kGap + 5 * Sheet::kNoteLead);
  sheet.skip(kGap);
  SheetText title = sheet.note(block.name, Sheet::kNoteLead);
  title.style.size = kTitleSize;
  sheet.put(title);
  sheet.skip(1.5 * Sheet::kNoteLead);
  for (const CharacterRow& row : chart.rows) putRow(row, subject, desk);
  if (chart.more == 0) return;
  sheet.row("", fmt::format("the first {} are shown, {} more are in the font", kMostCharacters,
                            grouped(chart.more)));
}

}  // namespace

void charactersSection(const Subject& subject, const Desk& desk) {
  const Blocks blocks = blocksOf(subject.characters);
  Sheet& sheet = desk.sheet;
  sheet.beginSection("Character set", 3 * Sheet::kNoteLead);
  sheet.row("", fmt::format("{} characters in {} {} of Unicode",
                            grouped(subject.characters.codes().size()), blocks.size(),
                            blocks.size() == 1 ? "block" : "blocks"));
  sheet.skip(Sheet::kNoteLead / 2);
  putCounts(blocks, sheet);
  const icu::UnicodeString sample =
      subject.samples.empty() ? icu::UnicodeString() : subject.samples.front().text;
  const std::vector<std::size_t> shown = blocksToShow(blocks, sample, kMostBlocks);
  for (const std::size_t index : shown) putChart(blocks[index], subject, desk);
  if (shown.size() < blocks.size()) {
    sheet.skip(kGap);
    sheet.row("", fmt::format("{} of the {} blocks are shown", shown.size(), blocks.size()));
  }
}

}  // namespace qxfont
