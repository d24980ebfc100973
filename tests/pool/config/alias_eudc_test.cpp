#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "pool/config/config_fixture.h"
#include "pool/config/config_values.h"

namespace QXFontService_NS {
namespace {

using qxtest::ConfigOutcome;
using qxtest::inFile;
using Messages = std::vector<std::string>;

class ConfigAlias : public qxtest::ConfigTest {
 protected:
  ConfigOutcome readAlias(const std::string& attributes) {
    return readInFolder("<font-alias file=\"A.ttf\"><alias " + attributes + "/></font-alias>");
  }
  const FS_FontFileAliases& record(const char16_t* file = u"a.ttf") const {
    return folder().aliases.at(FS_FontFileName{file, file});
  }
  const FS_FontAlias& first() const { return *record().aliases.begin(); }
};

TEST_F(ConfigAlias, KeepsTheFileAsSpelled) {
  readAlias("family-name=\"N\"");
  ASSERT_EQ(folder().aliases.size(), 1u);
  EXPECT_EQ(folder().aliases.begin()->first.name, icu::UnicodeString("A.ttf"));
  EXPECT_EQ(folder().aliases.begin()->first.lowerName, icu::UnicodeString("a.ttf"));
}

TEST_F(ConfigAlias, WhatIsNotGivenIsMarked) {
  readAlias("family-name=\"N\"");
  EXPECT_EQ(first().weight, -1);
  EXPECT_EQ(first().italic, -1);
  EXPECT_EQ(first().stretch, 0);
  EXPECT_EQ(record().entry, 0);
}

TEST_F(ConfigAlias, WeightsAreIntegersOrWords) {
  struct Case {
    const char* text;
    int weight;
    bool reported;
  };
  for (const Case& c :
       {Case{"700", 700, false}, Case{"100", 100, false}, Case{"900", 900, false},
        Case{"99", 99, true}, Case{"901", 901, true}, Case{"Bold", 700, false},
        Case{"demi", 700, false}, Case{"black", 400, false}, Case{"extra bold", 700, false},
        Case{"light", 400, false}, Case{"DEMI", 700, false}, Case{"0x190", 400, false},
        Case{"0", 0, true}, Case{"-1", -1, true}, Case{"99999999999", 400, false}}) {
    const ConfigOutcome outcome =
        readAlias("family-name=\"N\" weight=\"" + std::string(c.text) + "\"");
    EXPECT_EQ(first().weight, c.weight) << c.text;
    EXPECT_EQ(outcome.collected, c.reported ? Messages{inFile("Invalid value: <alias weight=\"" +
                                                              std::string(c.text) + "\">")}
                                            : Messages{})
        << c.text;
  }
}

TEST_F(ConfigAlias, ItalicIsABoolean) {
  readAlias("family-name=\"N\" italic=\"YES\"");
  EXPECT_EQ(first().italic, 1);
  readAlias("family-name=\"N\" italic=\"false\"");
  EXPECT_EQ(first().italic, 0);
  EXPECT_EQ(readAlias("family-name=\"N\" italic=\"1\"").collected,
            Messages{inFile("Invalid value: <alias italic=\"1\">")});
  EXPECT_EQ(first().italic, -1);
}

TEST(ConfigStretch, IsSearchedForWords) {
  struct Case {
    const char16_t* text;
    int stretch;
  };
  for (const Case& c :
       {Case{u"ultra-condensed", 1}, Case{u"extra condensed", 2}, Case{u"condensed", 3},
        Case{u"semi-condensed", 4}, Case{u"semi expanded", 6}, Case{u"expanded", 7},
        Case{u"extra-expanded", 8}, Case{u"ultraexpanded", 9}, Case{u"normal", 0}, Case{u"", 0},
        Case{u"Condensed", 0}, Case{u"ultra", 0}, Case{u"ultra extra condensed", 1},
        Case{u"extra semi expanded", 8}, Case{u"condensed expanded", 3}}) {
    EXPECT_EQ(config::stretchOf(c.text), c.stretch) << icu::UnicodeString(c.text).length();
  }
}

TEST_F(ConfigAlias, NamesAreRequiredAndOnce) {
  EXPECT_EQ(readAlias("weight=\"400\"").collected,
            Messages{inFile("Empty value: <alias family-name>")});
  const ConfigOutcome outcome = readInFolder(
      "<font-alias file=\"a.ttf\"><alias family-name=\"N\" weight=\"300\"/>"
      "<alias family-name=\"N\" weight=\"700\"/><alias family-name=\"n\"/></font-alias>");
  EXPECT_EQ(outcome.collected,
            Messages{inFile("Already registered value: <alias family-name=\"N\">")});
  EXPECT_EQ(record().aliases.size(), 2u) << "names are compared exactly here";
  EXPECT_EQ(first().weight, 300);
}

TEST_F(ConfigAlias, ASecondRecordOfAFileHasNoEffect) {
  const ConfigOutcome outcome = readInFolder(
      "<font-alias file=\"a.ttf\"><alias family-name=\"N\"/></font-alias>"
      "<font-alias file=\"A.TTF\"><alias family-name=\"M\" weight=\"1\"/></font-alias>"
      "<font-exclude file=\"behind\"/>");
  EXPECT_EQ(outcome.collected,
            (Messages{inFile("Already registered value: <font-alias file=\"A.TTF\">"),
                      inFile("Invalid value: <alias weight=\"1\">")}));
  EXPECT_EQ(record().aliases.size(), 1u);
  EXPECT_EQ(folder().fileOptions.count(u"behind"), 1u);
}

TEST_F(ConfigAlias, EntriesCountFromOneInCollections) {
  struct Case {
    const char* entry;
    int stored;
    std::string message;
  };
  const Case cases[] = {
      {"1", 0, ""},
      {"3", 2, ""},
      {"0", 0, "Invalid value: <font-alias entry=\"0\">"},
      {"-2", 0, "Invalid value: <font-alias entry=\"-2\">"},
      {"two", 0, "Not an integer value: <font-alias entry=\"two\">"},
  };
  for (const Case& c : cases) {
    const ConfigOutcome outcome =
        readInFolder("<font-alias file=\"a.TTC\" entry=\"" + std::string(c.entry) + "\"/>");
    EXPECT_EQ(record(u"a.ttc").entry, c.stored) << c.entry;
    EXPECT_EQ(outcome.collected, c.message.empty() ? Messages{} : Messages{inFile(c.message)});
  }
  EXPECT_TRUE(readInFolder("<font-alias file=\"a.ttf\" entry=\"two\"/>").collected.empty())
      << "other files have no entries to read";
  readInFolder("<font-alias file=\"a.ttf\" entry=\"2\"/>");
  EXPECT_EQ(record().entry, 0);
}

TEST_F(ConfigAlias, OnlyAliasesStandInside) {
  EXPECT_EQ(readInFolder("<font-alias file=\"a\"><font-entry/></font-alias>").thrown, 1028);
  EXPECT_EQ(readInFolder("<font-alias file=\"a\"><alias family-name=\"N\"><alias/></alias>"
                         "</font-alias>")
                .thrown,
            1028);
  EXPECT_EQ(readInFolder("<font-alias file=\"a\"></font-entry></font-alias>").thrown, 1029);
}

class ConfigEudc : public qxtest::ConfigTest {
 protected:
  ConfigOutcome readEudc(const std::string& children) {
    return readInRoot("<eudc-processing>" + children + "</eudc-processing>");
  }
  bool isEudc(int code) const { return registry->settings().eudcSet.contains(code); }
};

TEST_F(ConfigEudc, MappingIsSwitched) {
  readInRoot("<eudc-processing mapping=\"disable\"/>");
  EXPECT_FALSE(registry->settings().eudcMapping);
  readInRoot("<eudc-processing mapping=\"enable\"/>");
  EXPECT_TRUE(registry->settings().eudcMapping);
  EXPECT_EQ(readInRoot("<eudc-processing mapping=\"off\"/>").collected,
            Messages{inFile("Invalid value: <eudc-processing mapping=\"off\">")});
  EXPECT_TRUE(registry->settings().eudcMapping);
}

TEST_F(ConfigEudc, ChildrenAreReadEvenWhenDisabled) {
  readInRoot(
      "<eudc-processing mapping=\"disable\"><eudc-range start=\"57344\"/></eudc-processing>");
  EXPECT_TRUE(isEudc(57344));
}

TEST_F(ConfigEudc, MapsAreResolvedAgainstTheFile) {
  readEudc(
      "<eudc-map family-name=\"F\" file-path=\"e.tte\"/>"
      "<eudc-map family-name=\"G\" file-path=\"/abs/e.ttf\"/>");
  const auto& map = registry->settings().eudcMap;
  EXPECT_EQ(map.at(u"F").getText(), icu::UnicodeString("/etc/qx/e.tte"));
  EXPECT_EQ(map.at(u"G").getText(), icu::UnicodeString("/abs/e.ttf"));
}

TEST_F(ConfigEudc, MapsNeedBothValuesAndStandOnce) {
  EXPECT_EQ(readEudc("<eudc-map file-path=\"e\"/>").collected,
            Messages{inFile("Empty value: <eudc-map family-name>")});
  EXPECT_EQ(readEudc("<eudc-map family-name=\"F\"/>").collected,
            Messages{inFile("Empty value: <eudc-map file-path>")});
  EXPECT_EQ(readEudc("<eudc-map family-name=\"F\" file-path=\"a\"/>"
                     "<eudc-map family-name=\"F\" file-path=\"b\"/>")
                .collected,
            Messages{inFile("Already registered value: <eudc-map family-name=\"F\">")});
  EXPECT_EQ(registry->settings().eudcMap.at(u"F").getText(), icu::UnicodeString("/etc/qx/a"));
}

TEST_F(ConfigEudc, RangesSetTheirBits) {
  readEudc("<eudc-range start=\"300\" end=\"200\"/><eudc-range start=\"0xE000\"/>");
  EXPECT_TRUE(isEudc(200) && isEudc(250) && isEudc(300)) << "swapped";
  EXPECT_FALSE(isEudc(199) || isEudc(301));
  EXPECT_TRUE(isEudc(0xE000));
  EXPECT_FALSE(isEudc(0xE001));
  EXPECT_TRUE(registry->settings().eudcRangeConfigured);
}

TEST_F(ConfigEudc, NumbersOutOfRangeAreReportedAndUsedAsFarAsTheyGo) {
  struct Case {
    const char* attributes;
    std::string message;
    int in, out;
  };
  const Case cases[] = {
      {"start=\"-5\" end=\"10\"", "Invalid value: <eudc-range start=\"-5\">", 0, 11},
      {"start=\"0\" end=\"1\"", "Invalid value: <eudc-range start=\"0\">", 1, 2},
      {"start=\"65530\" end=\"65536\"", "Invalid value: <eudc-range end=\"65536\">", 65535, 65529},
      {"start=\"70000\" end=\"70010\"", "", -1, 65535},
  };
  for (const Case& c : cases) {
    const ConfigOutcome outcome = readEudc("<eudc-range " + std::string(c.attributes) + "/>");
    if (!c.message.empty()) {
      EXPECT_EQ(outcome.collected, Messages{inFile(c.message)});
    }
    EXPECT_EQ(isEudc(c.in), c.in >= 0) << c.attributes;
    EXPECT_FALSE(isEudc(c.out)) << c.attributes;
    EXPECT_TRUE(registry->settings().eudcRangeConfigured) << c.attributes;
    EXPECT_TRUE(reachedEnd()) << c.attributes;
  }
}

TEST_F(ConfigEudc, WhatIsNoNumberEndsTheReading) {
  struct Case {
    const char* attributes;
    std::string message;
  };
  const Case cases[] = {
      {"", "Empty value: <eudc-range start>"},
      {"end=\"9\"", "Empty value: <eudc-range start>"},
      {"start=\"E000\"", "Not an integer value: <eudc-range start=\"E000\">"},
      {"start=\"1\" end=\"x\"", "Not an integer value: <eudc-range end=\"x\">"},
      {"start=\"99999999999\"", "Not an integer value: <eudc-range start=\"99999999999\">"},
  };
  for (const Case& c : cases) {
    const ConfigOutcome outcome = readEudc("<eudc-range " + std::string(c.attributes) + "/>");
    EXPECT_EQ(outcome.collected, Messages{inFile(c.message)}) << c.attributes;
    EXPECT_FALSE(registry->settings().eudcRangeConfigured) << c.attributes;
  }
}

TEST_F(ConfigEudc, TheSystemDefaultStandsOnce) {
  readEudc("<eudc-system-default file-path=\"e.tte\"/>");
  EXPECT_EQ(registry->settings().eudcSystemDefault.getText(), icu::UnicodeString("/etc/qx/e.tte"));
  EXPECT_EQ(readEudc("<eudc-system-default/>").collected,
            Messages{inFile("Empty value: <eudc-system-default file-path>")});
  EXPECT_EQ(readEudc("<eudc-system-default file-path=\"a\"/><eudc-system-default file-path=\"b\"/>")
                .thrown,
            1028);
}

TEST_F(ConfigEudc, ChildrenHaveNoChildren) {
  EXPECT_EQ(readEudc("<font-folder/>").thrown, 1028);
  EXPECT_EQ(readEudc("<eudc-range start=\"1\"><x/></eudc-range>").thrown, 1028);
  EXPECT_EQ(readEudc("<eudc-range start=\"1\"></eudc-map>").thrown, 1029);
  EXPECT_EQ(readInRoot("<eudc-processing></font-config>").thrown, 1029);
}

TEST_F(ConfigEudc, EachChildHoldsNothingAndEndsInItsOwnTag) {
  for (const std::string child :
       {"eudc-map family-name=\"F\" file-path=\"e\"", "eudc-range start=\"1\"",
        "eudc-system-default file-path=\"e\""}) {
    const std::string name = child.substr(0, child.find(' '));
    const std::string start = "<" + child + ">";
    EXPECT_EQ(readEudc(start + "</" + name + ">").thrown, 0) << name;
    EXPECT_EQ(readEudc(start + "<eudc-range/></" + name + ">").thrownText,
              inFile("Unexpected start tag: <eudc-range>"));
    EXPECT_EQ(readEudc(start + "</eudc-processing>").thrownText,
              inFile("Unexpected end tag: </eudc-processing>"));
  }
}

TEST_F(ConfigEudc, OfARangeTheStartIsJudgedBeforeTheEnd) {
  EXPECT_EQ(readEudc("<eudc-range start=\"65536\" end=\"0\"/>").collected,
            (Messages{inFile("Invalid value: <eudc-range start=\"65536\">"),
                      inFile("Invalid value: <eudc-range end=\"0\">")}));
  EXPECT_TRUE(isEudc(0) && isEudc(0xFFFF)) << "swapped and used as far as they go";
  EXPECT_EQ(readEudc("<eudc-range start=\"1\" end=\"65535\"/>").collected, Messages());
}

}  // namespace
}  // namespace QXFontService_NS
