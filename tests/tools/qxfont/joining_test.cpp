#include "qxfont/shape/joining.h"

#include <gtest/gtest.h>

#include <string>

namespace qxfont {
namespace {

/// The forms of the characters of a text, those that do not join as "-".
std::string forms(const icu::UnicodeString& text) {
  std::string all;
  for (const LayoutTag tag : joiningForms(text)) {
    if (!all.empty()) all += ' ';
    all += tag == 0 ? "-" : tagText(tag);
  }
  return all;
}

TEST(Joining, formsOfLetters) {
  const struct {
    const char* what;
    icu::UnicodeString text;
    const char* forms;
  } cases[] = {
      {"nothing", u"", ""},
      {"Latin does not join", u"ab", "- -"},
      {"one letter", u"\u0628", "isol"},
      {"two that join both ways", u"\u0628\u0628", "init fina"},
      {"three", u"\u0628\u0628\u0628", "init medi fina"},
      {"alef joins what is before it alone", u"\u0628\u0627\u0628", "init fina isol"},
      {"alef does not begin", u"\u0627\u0628", "isol isol"},
      {"a mark between letters stands aside", u"\u0628\u064E\u0628", "init - fina"},
      {"a space parts", u"\u0628 \u0628", "isol - isol"},
      {"a non-joiner parts", u"\u0628\u200C\u0628", "isol - isol"},
      {"a joiner joins", u"\u0628\u200D", "init -"},
      {"from both sides", u"\u200D\u0628\u200D", "- medi -"},
      {"tatweel joins and has no form", u"\u0628\u0640\u0628", "init - fina"},
      {"hamza joins nothing", u"\u0628\u0621\u0628", "isol - isol"},
  };
  for (const auto& one : cases) EXPECT_EQ(forms(one.text), one.forms) << one.what;
}

TEST(Joining, charactersBeyondTheFirstPlane) {
  // Adlam letters join, each of two UTF-16 words.
  EXPECT_EQ(forms(u"\U0001E900\U0001E901"), "init - fina -");
}

}  // namespace
}  // namespace qxfont
