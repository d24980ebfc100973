#include "type1/program/text_program.h"

#include <gtest/gtest.h>

#include "support/byte_text.h"

namespace QXFontService_NS::type1 {
namespace {

using qxtest::bytesOf;

const std::string kClear = "%!PS\ncurrentfile eexec\n";
const std::string kZeros(64, '0');

TEST(TextProgram, HasThreeParts) {
  const TextProgram parts = splitTextProgram(kClear + "01ab\nFf10\n" + kZeros + "\ncleartomark\n");
  EXPECT_EQ(parts.clearText, "%!PS\rcurrentfile eexec\r");
  EXPECT_EQ(parts.privatePart, bytesOf({0x01, 0xAB, 0xFF, 0x10}));
  EXPECT_EQ(parts.trailer, kZeros + "\ncleartomark\n");
}

TEST(TextProgram, LineEndsOfTheClearTextBecomeCr) {
  EXPECT_EQ(splitTextProgram("a\r\nb\nc\r\rd").clearText, "a\rb\rc\r\rd\r");
  EXPECT_EQ(splitTextProgram("a\n\n").clearText, "a\r\r");
  EXPECT_EQ(splitTextProgram("").clearText, "");
}

TEST(TextProgram, ThePrivatePartBeginsBehindAWordAtTheEndOfALine) {
  const struct {
    const char* line;
    bool begins;
  } rows[] = {{"currentfile eexec", true},     {"mark currentfile eexec", true},
              {"currentfile eexec\r", true},   {"currentfile eexec ", false},
              {"currentfile eexecute", false}, {"Currentfile eexec", false}};
  for (const auto& row : rows) {
    const TextProgram parts = splitTextProgram(std::string(row.line) + "\n41\n");
    EXPECT_EQ(parts.privatePart == "A", row.begins) << row.line;
  }
}

TEST(TextProgram, WithoutThatWordAllIsClearText) {
  const TextProgram parts = splitTextProgram("%!PS\n41\n" + kZeros + "\n");
  EXPECT_EQ(parts.clearText, "%!PS\r41\r" + kZeros + "\r");
  EXPECT_EQ(parts.privatePart, "");
  EXPECT_EQ(parts.trailer, "");
}

TEST(TextProgram, AFileOfCrAloneIsOneLine) {
  const TextProgram parts = splitTextProgram("%!PS\rcurrentfile eexec\r4142\r");
  EXPECT_EQ(parts.clearText, "%!PS\rcurrentfile eexec\r4142\r") << "which ends the clear text";
  EXPECT_EQ(parts.privatePart, "");
}

TEST(TextProgram, LinesOfDigitsEndAtAnythingElse) {
  EXPECT_EQ(splitTextProgram(kClear + "41 42\r43\r\n44\n\n45-46").privatePart, "ABCDEF");
}

TEST(TextProgram, ALastDigitAloneIsTheHighHalf) {
  EXPECT_EQ(splitTextProgram(kClear + "414\n42").privatePart, "A@B");
}

TEST(TextProgram, OtherLettersCountAsZero) {
  EXPECT_EQ(splitTextProgram(kClear + "4Gz1\n").privatePart, bytesOf({0x40, 0x01}));
}

TEST(TextProgram, TheTrailerBeginsWithTheFirstLineOfFiveZeroBytes) {
  const TextProgram four = splitTextProgram(kClear + "00000000\n0000000041\n");
  EXPECT_EQ(four.trailer, "");
  EXPECT_EQ(four.privatePart.size(), 9u);
  const TextProgram five = splitTextProgram(kClear + "41\n000000000042\n43\n");
  EXPECT_EQ(five.privatePart, "A");
  EXPECT_EQ(five.trailer, "000000000042\n43\n") << "whatever stands behind them";
  EXPECT_EQ(splitTextProgram(kClear + "410000000000\n").trailer, "") << "at the line's start alone";
}

TEST(TextProgram, LineEndsOfTheTrailerStay) {
  EXPECT_EQ(splitTextProgram(kClear + "41\r\n" + kZeros + "\r\nend\r").trailer,
            kZeros + "\r\nend\r");
}

}  // namespace
}  // namespace QXFontService_NS::type1
