#include "target.h"
#include "type1_files.h"

namespace qxfuzz {
namespace {

std::vector<std::string> seeds() {
  return {soundProgram().privatePart(), soundProgram().count("9").privatePart(),
          qxtest::Type1Builder().glyph(".notdef", qxtest::type1Box(1, 1)).privatePart()};
}

/// The input is a private part before it is encrypted: what is fed reaches the charstrings.
void run(std::string_view input) {
  static const std::string metrics = soundMetrics().build();
  static const qxtest::Type1Builder sound = soundProgram();
  const std::string encrypted = qxtest::type1Encrypted(std::string(input), qxtest::kEexecKey);
  const std::string program = qxtest::type1Segment(1, sound.clearText()) +
                              qxtest::type1Segment(2, encrypted) +
                              qxtest::type1Segment(1, sound.trailer()) + "\x80\x03";
  feedType1(metrics, ".afm", program, ".pfb");
}

}  // namespace

extern const Target kEexec;
const Target kEexec{"eexec", "private parts of Type 1 programs, as they are before encryption",
                    &seeds, &run};

}  // namespace qxfuzz
