#include "qxfont/shape/mark_order.h"

#include <unicode/uchar.h>
#include <unicode/uscript.h>

#include <algorithm>
#include <array>

namespace qxfont {
namespace {

using Iterator = std::vector<RunCharacter>::iterator;

constexpr int kShaddaClass = 33;
constexpr int kBelow = 220;
constexpr int kAbove = 230;

// Modifier combining marks: part of the letter, such as a hamza.
constexpr std::array kModifiers = {0x0654, 0x0655, 0x0658, 0x06DC, 0x06E3, 0x06E7, 0x06E8,
                                   0x08CA, 0x08CB, 0x08CD, 0x08CE, 0x08CF, 0x08D3, 0x08F3};

int classOf(const RunCharacter& character) {
  return u_getCombiningClass(character.codePoint);
}

bool isArabicMark(const RunCharacter& character) {
  UErrorCode status = U_ZERO_ERROR;
  if (classOf(character) == 0) return false;
  return uscript_hasScript(character.codePoint, USCRIPT_ARABIC) != 0 ||
         uscript_getScript(character.codePoint, &status) == USCRIPT_INHERITED;
}

bool isModifier(const RunCharacter& character) {
  return std::find(kModifiers.begin(), kModifiers.end(), character.codePoint) != kModifiers.end();
}

/// Moves the modifiers with which the marks of a class begin to the front of the sequence.
void moveModifiers(Iterator begin, Iterator end, int ofClass) {
  const auto first =
      std::find_if(begin, end, [&](const RunCharacter& mark) { return classOf(mark) == ofClass; });
  const auto last = std::find_if_not(first, end, [&](const RunCharacter& mark) {
    return classOf(mark) == ofClass && isModifier(mark);
  });
  std::rotate(begin, first, last);
}

void orderMarks(Iterator begin, Iterator end) {
  std::stable_sort(begin, end, [](const RunCharacter& left, const RunCharacter& right) {
    return classOf(left) < classOf(right);
  });
  std::stable_partition(begin, end,
                        [](const RunCharacter& mark) { return classOf(mark) == kShaddaClass; });
  moveModifiers(begin, end, kAbove);
  moveModifiers(begin, end, kBelow);
}

}  // namespace

void orderArabicMarks(std::vector<RunCharacter>& characters) {
  for (auto at = characters.begin(); at != characters.end();) {
    const auto end = std::find_if_not(at, characters.end(), isArabicMark);
    const bool arabic = std::any_of(at, end, [](const RunCharacter& mark) {
      return uscript_hasScript(mark.codePoint, USCRIPT_ARABIC) != 0;
    });
    if (arabic) orderMarks(at, end);
    at = end == characters.end() ? end : end + 1;
  }
}

}  // namespace qxfont
