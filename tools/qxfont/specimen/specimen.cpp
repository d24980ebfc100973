#include "qxfont/specimen/specimen.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "qxfont/cli/progress.h"
#include "qxfont/embed/rights.h"
#include "qxfont/match/match_explanation.h"
#include "qxfont/specimen/family_faces.h"
#include "qxfont/specimen/section.h"
#include "qxfont/specimen/text_face.h"
#include "qxfont/typeset/shaper.h"

namespace qxfont {
namespace {

/// Opens a font of the sheet. The match is explained first: opening may fill gaps of the family.
Subject openSubject(const FontOptions& asked, Service& service, FontSet& fonts) {
  Subject subject;
  subject.asked = asked;
  subject.match = matchReport(service, asked);
  subject.face = fonts.faceOf(asked);
  subject.labelFace = subject.face;
  return subject;
}

void findOut(Subject& subject, Service& service, FontSet& fonts) {
  subject.characters = charactersOf(fonts.font(subject.face));
  subject.samples = sampleTexts(fonts.font(subject.face), subject.characters);
  subject.family = familyFaces(service, fonts, subject.face);
}

/// Labels are set in the font itself where it has the letters, else in a face for all such fonts.
/// That face also lends what a name has beside these letters.
void chooseLabelFaces(std::vector<Subject>& subjects, Service& service, FontSet& fonts,
                      DocumentKind kind) {
  std::optional<std::size_t> found;
  bool isSought = false;
  for (Subject& subject : subjects) {
    fonts.lend(subject.face);
    if (canSetLabels(fonts.font(subject.face), subject.characters)) continue;
    if (!std::exchange(isSought, true)) found = findTextFace(service, fonts, kind);
    subject.labelFace = found.value_or(subject.face);
  }
  if (found) fonts.lend(*found);
}

std::vector<Subject> subjectsOf(const SpecimenRequest& request, Service& service, FontSet& fonts) {
  std::vector<Subject> subjects;
  for (const FontOptions& asked : request.asked)
    subjects.push_back(openSubject(asked, service, fonts));
  for (const Subject& subject : subjects)
    if (!request.allowRestricted) requireRights(fonts.font(subject.face), true);
  for (Subject& subject : subjects) findOut(subject, service, fonts);
  chooseLabelFaces(subjects, service, fonts, request.kind);
  return subjects;
}

}  // namespace

Specimen setSpecimen(const SpecimenRequest& request, Service& service, FontSet& fonts) {
  const std::vector<Subject> subjects = subjectsOf(request, service, fonts);
  const Shaper shaper(fonts);
  LineSetter setter(fonts, shaper);
  Sheet sheet(request.page, setter);
  Progress progress("setting sections");
  std::size_t done = 0;
  for (const Subject& subject : subjects) {
    for (const Section section : sections()) {
      section(subject, {fonts, setter, sheet});
      progress.show(++done, subjects.size() * sections().size());
    }
  }
  Specimen specimen;
  specimen.pages = sheet.finish();
  specimen.missing = setter.missing();
  return specimen;
}

}  // namespace qxfont
