#include "harness/sample_text.h"

#include <algorithm>
#include <cmath>

namespace qxbench {
namespace {

constexpr const char* kLatin =
    "Whereas recognition of the inherent dignity and of the equal and inalienable rights of all "
    "members of the human family is the foundation of freedom, justice and peace in the world. "
    "All human beings are born free and equal in dignity and rights. They are endowed with reason "
    "and conscience and should act towards one another in a spirit of brotherhood. No one shall be "
    "subjected to arbitrary interference with his privacy, family, home or correspondence, nor to "
    "attacks upon his honour and reputation. Everyone has the right to an effective remedy, a fair "
    "office and the final affirmation of five difficult flights of offices. ";

constexpr const char* kArabic =
    "يولد جميع الناس أحرارا متساوين في الكرامة والحقوق. وقد وهبوا عقلا وضميرا وعليهم أن يعامل "
    "بعضهم بعضا بروح الإخاء. لكل إنسان حق التمتع بجميع الحقوق والحريات المذكورة في هذا الإعلان، "
    "دون "
    "تمييز من أي نوع، ولا سيما التمييز بسبب العنصر أو اللون أو الجنس أو اللغة أو الدين أو الرأي "
    "سياسيا وغير سياسي، أو الأصل الوطني أو الاجتماعي أو الثروة أو المولد أو أي وضع آخر. ";

std::string repeated(const char* text, std::size_t characters) {
  const icu::UnicodeString once = icu::UnicodeString::fromUTF8(text);
  icu::UnicodeString all;
  while (static_cast<std::size_t>(all.length()) < characters) all += once;
  all.truncate(static_cast<int32_t>(characters));
  std::string utf8;
  return all.trim().toUTF8String(utf8);
}

/// Pieces of whole words, each closed as soon as it has `least` bytes.
std::vector<std::string> piecesOf(const std::string& text, std::size_t least) {
  std::vector<std::string> pieces;
  std::string piece;
  for (const char c : text) {
    if (c == ' ' && piece.size() >= least) {
      pieces.push_back(piece);
      piece.clear();
    } else {
      piece += c;
    }
  }
  if (!piece.empty()) pieces.push_back(piece);
  return pieces;
}

/// Numbers that are the same in every run (xorshift).
class Draw {
 public:
  std::uint64_t next() {
    state_ ^= state_ << 13;
    state_ ^= state_ >> 7;
    state_ ^= state_ << 17;
    return state_;
  }
  double fraction() { return static_cast<double>(next() >> 11) * 0x1p-53; }

 private:
  std::uint64_t state_ = 88172645463325252ULL;
};

}  // namespace

std::string latinText(std::size_t characters) {
  return repeated(kLatin, characters);
}

std::string arabicText(std::size_t characters) {
  return repeated(kArabic, characters);
}

std::vector<std::string> wordsOf(const std::string& text) {
  return piecesOf(text, 1);
}

std::vector<std::string> linesOf(const std::string& text) {
  return piecesOf(text, 80);
}

SampleText sampleOf(const std::string& utf8) {
  SampleText sample{icu::UnicodeString::fromUTF8(utf8), {}};
  for (int32_t at = 0; at < sample.utf16.length(); at = sample.utf16.moveIndex32(at, 1))
    sample.codes.push_back(static_cast<std::uint32_t>(sample.utf16.char32At(at)));
  return sample;
}

SampleText zipfText(std::vector<std::uint32_t> ideographs, std::size_t characters) {
  constexpr std::size_t kUsed = 3000;
  Draw draw;
  for (std::size_t i = ideographs.size(); i-- > 1;)
    std::swap(ideographs[i], ideographs[draw.next() % (i + 1)]);
  ideographs.resize(std::min(ideographs.size(), kUsed));
  SampleText sample;
  if (ideographs.empty()) return sample;
  const double logarithm = std::log(static_cast<double>(ideographs.size()));
  while (sample.codes.size() < characters) {
    const double rank = std::exp(draw.fraction() * logarithm) - 1;
    sample.codes.push_back(ideographs[static_cast<std::size_t>(rank) % ideographs.size()]);
    sample.utf16.append(static_cast<UChar32>(sample.codes.back()));
  }
  return sample;
}

}  // namespace qxbench
