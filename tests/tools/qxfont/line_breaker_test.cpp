#include "qxfont/typeset/line_breaker.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "qxfont/cli/text.h"

namespace qxfont {
namespace {

/// The lines of a text whose characters are one unit wide each.
std::vector<std::string> lines(const icu::UnicodeString& text, double width) {
  std::vector<double> advances(static_cast<std::size_t>(text.length()), 0);
  for (int i = 0; i < text.length(); i = text.moveIndex32(i, 1)) {
    advances[static_cast<std::size_t>(i)] = 1;
  }
  std::vector<std::string> all;
  for (const LineRange& line : breakLines(text, advances, width)) {
    all.push_back(utf8(text.tempSubStringBetween(line.begin, line.end)));
  }
  return all;
}

struct Case {
  const char* what;
  icu::UnicodeString text;
  double width;
  std::vector<std::string> lines;
};

TEST(LineBreaker, fillsLines) {
  const Case cases[] = {
      {"nothing", u"", 5, {}},
      {"what fits", u"a bc", 4, {"a bc"}},
      {"what just does not", u"a bc", 3.9, {"a", "bc"}},
      {"spaces at a line's end take no room", u"ab   cd", 2, {"ab", "cd"}},
      {"greedy", u"a b c d", 3, {"a b", "c d"}},
      {"no break at a no-break space", u"a b\u00A0c", 3, {"a", "b\u00A0c"}},
      {"behind a hyphen", u"ab-cd", 3, {"ab-", "cd"}},
      {"between ideographs, not before a full stop", u"吾輩は猫。", 4, {"吾輩は", "猫。"}},
      {"a long word is cut", u"abcdefg", 3, {"abc", "def", "g"}},
      {"a long word begins a line of its own", u"x abcdefg", 3, {"x", "abc", "def", "g"}},
      {"what follows a cut word fills its line", u"abcd e", 3, {"abc", "d e"}},
      {"one character a line at least", u"ab", 0.5, {"a", "b"}},
      {"characters as people see them are not cut", u"e\u0301e\u0301", 2, {"e\u0301", "e\u0301"}},
      {"nor are surrogate pairs", u"\U0001F600\U0001F600", 1, {"\U0001F600", "\U0001F600"}},
  };
  for (const Case& one : cases) EXPECT_EQ(lines(one.text, one.width), one.lines) << one.what;
}

TEST(LineBreaker, takesLongTextsInOneGo) {
  std::string word(100000, 'a');
  const auto all = lines(unicode(word), 10);
  EXPECT_EQ(all.size(), 10000U);
}

}  // namespace
}  // namespace qxfont
