#include "qxfont/typeset/itemizer.h"

#include <unicode/uchar.h>
#include <unicode/uscript.h>

namespace qxfont {
namespace {

bool isMark(int codePoint) {
  return (U_MASK(u_charType(codePoint)) & U_GC_M_MASK) != 0;
}

/// Chooses the face of one character after another.
class FaceChooser {
 public:
  FaceChooser(std::size_t style, const FontSet& fonts, std::set<int>& missing)
      : style_(style), fonts_(fonts), missing_(missing), last_(runOf(style, false)) {}

  Run choose(int codePoint) {
    if (isInvisible(codePoint)) return last_;
    if (isMark(codePoint) && fonts_.glyphOf(last_.face, codePoint, 0) != 0) {
      return last_ = runOf(last_.face, false);
    }
    const std::size_t face = fonts_.faceFor(codePoint, style_);
    const bool nowhere = face == FontSet::kNoFace;
    if (nowhere) missing_.insert(codePoint);
    return last_ = runOf(nowhere ? style_ : face, nowhere);
  }

 private:
  static Run runOf(std::size_t face, bool missing) {
    Run run;
    run.face = face;
    run.missing = missing;
    return run;
  }

  std::size_t style_;
  const FontSet& fonts_;
  std::set<int>& missing_;
  Run last_;
};

bool isOfNoScript(UScriptCode script) {
  return script == USCRIPT_COMMON || script == USCRIPT_INHERITED || script == USCRIPT_UNKNOWN;
}

UScriptCode scriptOf(int codePoint) {
  UErrorCode status = U_ZERO_ERROR;
  const UScriptCode script = uscript_getScript(codePoint, &status);
  return U_SUCCESS(status) ? script : USCRIPT_COMMON;
}

/// The first script of its own in a text.
UScriptCode firstScript(const icu::UnicodeString& text) {
  for (int i = 0; i < text.length(); i = text.moveIndex32(i, 1)) {
    const UScriptCode script = scriptOf(text.char32At(i));
    if (!isOfNoScript(script)) return script;
  }
  return USCRIPT_COMMON;
}

bool isSameRun(const Run& left, const Run& right) {
  return left.face == right.face && left.missing == right.missing && left.script == right.script &&
         left.rightToLeft == right.rightToLeft;
}

}  // namespace

std::vector<Run> itemize(const icu::UnicodeString& text, const Bidi& bidi, std::size_t style,
                         const FontSet& fonts, std::set<int>& missing) {
  std::vector<Run> runs;
  FaceChooser chooser(style, fonts, missing);
  UScriptCode script = firstScript(text);
  for (int i = 0; i < text.length();) {
    const int codePoint = text.char32At(i);
    const UScriptCode own = scriptOf(codePoint);
    if (!isOfNoScript(own)) script = own;
    Run run = chooser.choose(codePoint);
    run.script = script;
    run.rightToLeft = bidi.levelAt(i) % 2 != 0;
    run.begin = i;
    run.end = i = text.moveIndex32(i, 1);
    if (!runs.empty() && isSameRun(runs.back(), run)) {
      runs.back().end = run.end;
    } else {
      runs.push_back(run);
    }
  }
  return runs;
}

}  // namespace qxfont
