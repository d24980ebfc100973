#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "qxfont/shape/layout_tag.h"
#include "qxfont/specimen/feature_change.h"
#include "qxfont/specimen/script_features.h"
#include "qxfont/specimen/section.h"

namespace qxfont {
namespace {

constexpr double kSize = 14;
constexpr double kRoom = 8;  // between the two columns, and below a row
constexpr std::size_t kMostLines = 6;

void putTags(const std::vector<ScriptFeatures>& all, Sheet& sheet) {
  for (const ScriptFeatures& one : all) {
    sheet.row("scripts", tagsText(one.scripts), kMostLines);
    if (!one.gsub.empty()) sheet.row("GSUB", tagsText(one.gsub), kMostLines);
    if (!one.gpos.empty()) sheet.row("GPOS", tagsText(one.gpos), kMostLines);
    sheet.skip(Sheet::kNoteLead / 2);
  }
  if (all.empty()) sheet.row("", "no layout tables");
}

bool isAskedFor(const KnownFeature& feature, const std::vector<ScriptFeatures>& all,
                const fs::FS_FontInfo& font) {
  if (hasFeature(all, feature.tag)) return true;
  return feature.tag == layoutTag("kern") && font.hasPairKerningInfo(false);
}

std::vector<FeatureChange> changesOf(const Subject& subject, const Desk& desk,
                                     const std::vector<ScriptFeatures>& all) {
  const fs::FS_FontInfo& font = desk.fonts.font(subject.face);
  const FeatureProbe probe(desk.setter, subject.face);
  std::vector<FeatureChange> changes;
  for (const KnownFeature& feature : knownFeatures()) {
    if (!isAskedFor(feature, all, font)) continue;
    if (auto change = findChange(feature, subject.characters, subject.samples, probe))
      changes.push_back(std::move(*change));
  }
  return changes;
}

void putHalf(const Subject& subject, const Desk& desk, const FeatureChange& change, bool on,
             double baseline) {
  Sheet& sheet = desk.sheet;
  const double half = sheet.contentWidth() / 2;
  SheetText text = sheet.note("", baseline);
  text.text = change.text;
  text.style.face = subject.face;
  text.style.size = kSize;
  text.style.width = half - kRoom;
  text.style.switches = {{change.tag, on}};
  if (on) text.x += half;
  sheet.put(text);
}

void putChange(const Subject& subject, const Desk& desk, const FeatureChange& change) {
  Sheet& sheet = desk.sheet;
  const LineBox box = lineBoxOf(desk.fonts.font(subject.face));
  const double height = std::max(box.height(kSize), 2 * Sheet::kNoteLead) + kRoom;
  const double baseline = box.ascent * kSize;
  sheet.need(height);
  sheet.label(tagText(change.tag), baseline);
  sheet.label(change.name, baseline + Sheet::kNoteLead);
  putHalf(subject, desk, change, false, baseline);
  putHalf(subject, desk, change, true, baseline);
  sheet.skip(height);
}

void putColumnTitles(Sheet& sheet) {
  sheet.need(5 * Sheet::kNoteLead);
  sheet.skip(Sheet::kNoteLead);
  for (const bool on : {false, true}) {
    SheetText text = sheet.note(on ? "with" : "without", Sheet::kNoteLead);
    text.style.grey = Sheet::kGrey;
    if (on) text.x += sheet.contentWidth() / 2;
    sheet.put(text);
  }
  sheet.skip(1.5 * Sheet::kNoteLead);
}

}  // namespace

void featuresSection(const Subject& subject, const Desk& desk) {
  const std::vector<ScriptFeatures> all = scriptFeatures(desk.fonts.font(subject.face));
  desk.sheet.beginSection("Features", 3 * Sheet::kNoteLead);
  putTags(all, desk.sheet);
  const std::vector<FeatureChange> changes = changesOf(subject, desk, all);
  if (changes.empty()) return;
  putColumnTitles(desk.sheet);
  for (const FeatureChange& change : changes) putChange(subject, desk, change);
}

}  // namespace qxfont
