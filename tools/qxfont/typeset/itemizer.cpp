#include "qxfont/typeset/itemizer.h"

#include <unicode/uchar.h>

namespace qxfont {
namespace {

bool isMark(int codePoint) {
  return (U_MASK(u_charType(codePoint)) & U_GC_M_MASK) != 0;
}

/// Chooses the face of one character after another.
class FaceChooser {
 public:
  FaceChooser(std::size_t style, const FontSet& fonts, std::set<int>& missing)
      : style_(style), fonts_(fonts), missing_(missing), last_{0, 0, style, false} {}

  Run choose(int codePoint) {
    if (isInvisible(codePoint)) return last_;
    if (isMark(codePoint) && fonts_.glyphOf(last_.face, codePoint, 0) != 0) {
      return last_ = {0, 0, last_.face, false};
    }
    const std::size_t face = fonts_.faceFor(codePoint, style_);
    const bool nowhere = face == FontSet::kNoFace;
    if (nowhere) missing_.insert(codePoint);
    return last_ = {0, 0, nowhere ? style_ : face, nowhere};
  }

 private:
  std::size_t style_;
  const FontSet& fonts_;
  std::set<int>& missing_;
  Run last_;
};

}  // namespace

std::vector<Run> itemize(const icu::UnicodeString& text, std::size_t style, const FontSet& fonts,
                         std::set<int>& missing) {
  std::vector<Run> runs;
  FaceChooser chooser(style, fonts, missing);
  for (int i = 0; i < text.length();) {
    Run run = chooser.choose(text.char32At(i));
    run.begin = i;
    run.end = i = text.moveIndex32(i, 1);
    const bool more =
        !runs.empty() && runs.back().face == run.face && runs.back().missing == run.missing;
    if (more) {
      runs.back().end = run.end;
    } else {
      runs.push_back(run);
    }
  }
  return runs;
}

}  // namespace qxfont
