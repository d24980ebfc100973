#include "qxfont/match/match_explanation.h"

#include <fmt/format.h>

#include <array>
#include <cstddef>

#include "qxfont/cli/open_font.h"
#include "qxfont/cli/paths.h"
#include "qxfont/cli/text.h"

namespace qxfont {
namespace {

using fs::ext::FilledSlot;
using fs::ext::MatchFace;
using fs::ext::MatchReport;
using Lines = std::vector<ExplanationLine>;

constexpr std::array kPools = {"none", "extra", "alias", "main"};
constexpr std::array kTables = {"none", "family", "file"};
constexpr std::array kSteps = {"none", "exact", "stretch", "upright", "rounded", "filled"};
constexpr std::array kStepTexts = {"nothing",
                                   "weight, slant and width as asked",
                                   "weight and slant as asked, in normal width",
                                   "the upright face of that weight stands in for its italic",
                                   "the weight rounded up to a hundred",
                                   "no face has this style: the nearest one fills the gap"};

template <class Texts, class Value>
const char* textOf(const Texts& texts, Value value) {
  return texts[static_cast<std::size_t>(value)];
}

/// A document's font has no name but the one that the document declares.
std::string nameOf(const MatchFace& face) {
  return utf8(face.postScriptName.isEmpty() ? face.family : face.postScriptName);
}

MatchReport reportOfPath(Service& service, const FontOptions& options) {
  const OpenFont font = openFont(service, options);
  MatchReport report;
  report.face.file = font->getFontFileName();
  report.face.entry = font->getEntry();
  report.face.fileType = font->getFontFileType();
  report.face.family = font->getFamilyName(fs::QXLang::LANGID_DEFAULT);
  report.face.postScriptName = font->getPostScriptName(fs::QXLang::LANGID_DEFAULT);
  font->getFontStyle(&report.face.weight, &report.face.italic, &report.face.stretch);
  return report;
}

MatchReport reportOfName(Service& service, const FontOptions& options) {
  MatchReport report;
  if (!fs::ext::explainMatch(unicode(options.font), options.weight, options.italic, options.stretch,
                             service.documentFonts(), report)) {
    throw noSuchFont(service, options.font);
  }
  return report;
}

void addFilled(const MatchReport& report, Lines& lines) {
  if (report.filled.empty()) return;
  lines.push_back({"filled", fmt::format("{} styles that no face has, taken by the nearest:",
                                         report.filled.size())});
  for (const FilledSlot& slot : report.filled) {
    lines.push_back({"", fmt::format("{}{} -> {}", slot.weight, slot.italic ? " italic" : "",
                                     nameOf(slot.face))});
  }
}

}  // namespace

MatchReport matchReport(Service& service, const FontOptions& options) {
  return isPath(options.font) ? reportOfPath(service, options) : reportOfName(service, options);
}

const char* matchPoolName(fs::ext::MatchPool pool) {
  return textOf(kPools, pool);
}

const char* matchTableName(fs::ext::MatchTable table) {
  return textOf(kTables, table);
}

const char* matchStepName(fs::ext::MatchStep step) {
  return textOf(kSteps, step);
}

std::string matchedFace(const MatchFace& face) {
  return fmt::format("{} (weight {}{}, width {})", nameOf(face), face.weight,
                     face.italic ? ", italic" : "", face.stretch);
}

std::string matchedFile(const MatchFace& face) {
  const std::string path = utf8(face.file.getLocalPath(true));
  return face.entry > 0 ? fmt::format("{}, face {}", path, face.entry) : path;
}

Lines explanationOf(const MatchReport& report) {
  if (report.pool == fs::ext::MatchPool::none)
    return {{"found", "by its path, no name was looked up"}};
  Lines lines;
  lines.push_back(
      {"found", fmt::format("in the {} pool, {} table, as '{}'", matchPoolName(report.pool),
                            matchTableName(report.table), utf8(report.key))});
  lines.push_back(
      {"step", fmt::format("{}: {}", matchStepName(report.step), textOf(kStepTexts, report.step))});
  addFilled(report, lines);
  for (const MatchFace& loser : report.losers) {
    lines.push_back(
        {"behind", fmt::format("{} in {} has the same name and style and was found later",
                               matchedFace(loser), utf8(loser.file.getLocalPath(true)))});
  }
  return lines;
}

}  // namespace qxfont
