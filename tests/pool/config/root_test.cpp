#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "pool/config/config_fixture.h"

namespace QXFontService_NS {
namespace {

using qxtest::ConfigOutcome;
using qxtest::inFile;
using Messages = std::vector<std::string>;

class ConfigRoot : public qxtest::ConfigTest {};

TEST_F(ConfigRoot, SettingsHaveTheirDefaults) {
  EXPECT_EQ(readInRoot("").thrown, 0);
  const ServiceSettings& settings = registry->settings();
  EXPECT_FALSE(settings.windowsNames);
  EXPECT_TRUE(settings.systemList);
  EXPECT_FALSE(settings.systemListAsked);
  EXPECT_TRUE(settings.eudcMapping);
  EXPECT_FALSE(settings.eudcRangeConfigured);
  EXPECT_FALSE(settings.eudcSet.contains(0xE000));
  EXPECT_TRUE(settings.eudcSystemDefault.isEmpty());
  EXPECT_TRUE(settings.eudcMap.empty());
  EXPECT_FALSE(settings.windowsMetrics);
  EXPECT_TRUE(settings.usePreferredFamily);
  EXPECT_FALSE(settings.winFontsUsed);
  EXPECT_EQ(settings.configUri.getText(), icu::UnicodeString(kPath));
}

TEST_F(ConfigRoot, AnythingButTheRootIsThrown) {
  struct Case {
    const char* name;
    const char* xml;
    int code;
    std::string text;
  };
  const Case cases[] = {
      {"another root", "<fonts/>", 1028, inFile("Unexpected start tag: <fonts>")},
      {"names are case-sensitive", "<Font-Config/>", 1028,
       inFile("Unexpected start tag: <Font-Config>")},
      {"unknown child", "<font-config><x/></font-config>", 1028,
       inFile("Unexpected start tag: <x>")},
      {"keyword without a place here", "<font-config><alias/></font-config>", 1028,
       inFile("Unexpected start tag: <alias>")},
      {"foreign end tag", "<font-config></font-folder>", 1029,
       inFile("Unexpected end tag: </font-folder>")},
      {"no folder", "<font-config/>", 1027, "No <font-folder> in /etc/qx/font-config.xml"},
      {"empty document", "", 1027, "No <font-folder> in /etc/qx/font-config.xml"},
      {"comments only", "<!-- nothing -->", 1027, "No <font-folder> in /etc/qx/font-config.xml"},
  };
  for (const Case& c : cases) {
    const ConfigOutcome outcome = read(c.xml);
    EXPECT_EQ(outcome.thrown, c.code) << c.name;
    EXPECT_EQ(outcome.thrownText, c.text) << c.name;
    EXPECT_TRUE(outcome.collected.empty()) << c.name;
  }
}

TEST_F(ConfigRoot, PassesOverWhatStandsBeforeTheRoot) {
  EXPECT_EQ(read("<?xml version=\"1.0\"?><!-- x --><font-config> text <font-folder path=\"/f\"/>"
                 "</font-config>")
                .thrown,
            0);
  EXPECT_EQ(registry->folders().size(), 1u);
}

struct RootSettings {
  bool windowsNames, windowsMetrics, preferred, list, listAsked;
};

TEST_F(ConfigRoot, AttributesSetTheirSetting) {
  struct Case {
    const char* attribute;
    bool RootSettings::*setting;
    bool value;
  };
  const Case cases[] = {
      {"name-processing-mode=\"default\"", &RootSettings::windowsNames, false},
      {"name-processing-mode=\"windows\"", &RootSettings::windowsNames, true},
      {"name-processing-mode=\"windows-name\"", &RootSettings::windowsNames, true},
      {"otf-metrics-mode=\"typographic\"", &RootSettings::windowsMetrics, false},
      {"otf-metrics-mode=\"windows\"", &RootSettings::windowsMetrics, true},
      {"use-preferred-family=\"yes\"", &RootSettings::preferred, true},
      {"use-preferred-family=\"TRUE\"", &RootSettings::preferred, true},
      {"use-preferred-family=\"no\"", &RootSettings::preferred, false},
      {"use-preferred-family=\"False\"", &RootSettings::preferred, false},
      {"windows-registry=\"disable\"", &RootSettings::list, false},
      {"windows-registry=\"disable\"", &RootSettings::listAsked, false},
      {"windows-registry=\"enable\"", &RootSettings::list, true},
      {"windows-registry=\"enable\"", &RootSettings::listAsked, true},
  };
  for (const Case& c : cases) {
    const ConfigOutcome outcome = read("<font-config " + std::string(c.attribute) +
                                       "><font-folder path=\"/f\"/></font-config>");
    const ServiceSettings& got = registry->settings();
    const RootSettings settings{got.windowsNames, got.windowsMetrics, got.usePreferredFamily,
                                got.systemList, got.systemListAsked};
    EXPECT_EQ(settings.*c.setting, c.value) << c.attribute;
    EXPECT_TRUE(outcome.collected.empty()) << c.attribute;
  }
}

TEST_F(ConfigRoot, BadAttributesAreCollectedInOrderAndReadingGoesOn) {
  const ConfigOutcome outcome = read(
      "<font-config windows-registry=\"Disable\" use-preferred-family=\"maybe\" "
      "otf-metrics-mode=\"typo\" name-processing-mode=\"x\"><font-folder path=\"/f\"/>"
      "</font-config>");
  EXPECT_EQ(outcome.thrown, 0);
  EXPECT_EQ(outcome.collected,
            (Messages{inFile("Invalid value: <font-config name-processing-mode=\"x\">"),
                      inFile("Invalid value: <font-config name-processing-mode=\"typo\">"),
                      inFile("Invalid value: <font-config use-preferred-family=\"maybe\">"),
                      inFile("Invalid value: <font-config windows-registry=\"Disable\">")}));
  EXPECT_TRUE(registry->settings().systemList);
}

TEST_F(ConfigRoot, ABadMetricsModeIsReportedUnderTheOtherName) {
  const ConfigOutcome root =
      read("<font-config otf-metrics-mode=\"typo\"><font-folder path=\"/f\"/></font-config>");
  EXPECT_EQ(root.collected,
            Messages{inFile("Invalid value: <font-config name-processing-mode=\"typo\">")});
  const ConfigOutcome element = readInRoot("<otf-metrics-mode mode=\"typo\"/>");
  EXPECT_EQ(element.collected, Messages{inFile("Invalid value: <otf-metrics-mode mode=\"typo\">")})
      << "the element reports itself";
}

TEST_F(ConfigRoot, ElementsSetTheirSetting) {
  EXPECT_EQ(readInRoot("<name-processing-mode mode=\"windows\"/>").thrown, 0);
  EXPECT_TRUE(registry->settings().windowsNames);
  readInRoot("<otf-metrics-mode mode=\"windows\"/>");
  EXPECT_TRUE(registry->settings().windowsMetrics);
  readInRoot("<windows-registry reference=\"disable\"/>");
  EXPECT_FALSE(registry->settings().systemList);
  readInRoot("<windows-registry reference=\"enable\"/>");
  EXPECT_TRUE(registry->settings().systemListAsked);
  readInRoot("<name-processing-mode/><otf-metrics-mode/>");
  EXPECT_FALSE(registry->settings().windowsNames);
  EXPECT_FALSE(registry->settings().windowsMetrics);
  EXPECT_TRUE(reachedEnd());
}

TEST_F(ConfigRoot, BadElementsAreCollected) {
  struct Case {
    const char* element;
    std::string message;
    bool goesOn;
  };
  const Case cases[] = {
      {"<name-processing-mode mode=\"x\"/>", "Invalid value: <name-processing-mode mode=\"x\">",
       true},
      {"<windows-registry reference=\"on\"/>", "Invalid value: <windows-registry reference=\"on\">",
       true},
      {"<windows-registry/>", "Empty value: <windows-registry reference>", false},
  };
  for (const Case& c : cases) {
    const ConfigOutcome outcome = readInRoot(c.element);
    EXPECT_EQ(outcome.collected, Messages{inFile(c.message)}) << c.element;
    EXPECT_EQ(reachedEnd(), c.goesOn) << c.element;
    EXPECT_EQ(outcome.thrown, c.goesOn ? 0 : 1027) << c.element;
  }
}

TEST_F(ConfigRoot, ElementsHaveTheirPlace) {
  struct Case {
    const char* name;
    std::string xml;
    std::string refused;
  };
  const std::string folder = "<font-folder path=\"/f\"/>";
  const Case cases[] = {
      {"mode behind a folder", "<font-config>" + folder + "<name-processing-mode/></font-config>",
       "name-processing-mode"},
      {"mode behind a refused folder",
       "<font-config><font-folder path=\"rel\"/><name-processing-mode/></font-config>",
       "name-processing-mode"},
      {"mode given at the root",
       "<font-config name-processing-mode=\"bad\"><name-processing-mode/></font-config>",
       "name-processing-mode"},
      {"mode twice", "<font-config><name-processing-mode/><name-processing-mode/></font-config>",
       "name-processing-mode"},
      {"metrics given at the root",
       "<font-config otf-metrics-mode=\"windows\"><otf-metrics-mode/></font-config>",
       "otf-metrics-mode"},
      {"metrics twice", "<font-config><otf-metrics-mode/><otf-metrics-mode/></font-config>",
       "otf-metrics-mode"},
      {"registry given at the root",
       "<font-config windows-registry=\"enable\"><windows-registry/></font-config>",
       "windows-registry"},
      {"registry twice",
       "<font-config><windows-registry reference=\"enable\"/><windows-registry/></font-config>",
       "windows-registry"},
      {"eudc twice", "<font-config><eudc-processing/><eudc-processing/></font-config>",
       "eudc-processing"},
      {"child of a mode", "<font-config><otf-metrics-mode><x/></otf-metrics-mode></font-config>",
       "x"},
  };
  for (const Case& c : cases) {
    const ConfigOutcome outcome = read(c.xml);
    EXPECT_EQ(outcome.thrown, 1028) << c.name;
    EXPECT_EQ(outcome.thrownText, inFile("Unexpected start tag: <" + c.refused + ">")) << c.name;
  }
}

TEST_F(ConfigRoot, ElementsHoldNothingAndEndInTheirOwnTag) {
  for (const std::string element :
       {"name-processing-mode", "otf-metrics-mode", "windows-registry reference=\"enable\""}) {
    const std::string name = element.substr(0, element.find(' '));
    const std::string start = "<" + element + ">";
    EXPECT_EQ(readInRoot(start + " text </" + name + ">").thrown, 0) << name;
    EXPECT_EQ(readInRoot(start + "<font-folder path=\"/f\"/></" + name + ">").thrownText,
              inFile("Unexpected start tag: <font-folder>"));
    EXPECT_EQ(readInRoot(start + "</eudc-processing>").thrownText,
              inFile("Unexpected end tag: </eudc-processing>"));
  }
}

TEST_F(ConfigRoot, MetricsAndRegistryMayStandBehindAFolder) {
  EXPECT_EQ(read("<font-config><font-folder path=\"/f\"/><otf-metrics-mode mode=\"windows\"/>"
                 "<windows-registry reference=\"disable\"/></font-config>")
                .thrown,
            0);
  EXPECT_TRUE(registry->settings().windowsMetrics);
  EXPECT_FALSE(registry->settings().systemList);
}

TEST_F(ConfigRoot, WithoutAFileTheSystemsFolderServes) {
  world.folder("/usr/share/fonts");
  for (const char* variable : {static_cast<const char*>(nullptr), "", "QX_NOT_SET"}) {
    const ConfigOutcome outcome = readVariable(variable);
    EXPECT_EQ(outcome.thrown, 0);
    ASSERT_EQ(registry->folders().size(), 1u);
    EXPECT_EQ(registry->folders()[0].getText(), icu::UnicodeString("/usr/share/fonts/"));
    EXPECT_EQ(registry->folders()[0].recursive, 0);
    EXPECT_TRUE(registry->settings().configUri.isEmpty());
    EXPECT_TRUE(registry->settings().windowsNames);
    EXPECT_TRUE(registry->settings().systemList);
    EXPECT_TRUE(registry->settings().eudcMapping);
  }
}

TEST_F(ConfigRoot, WithoutAnyFolderTheValueOfTheVariableIsTold) {
  world.setEnvironment("QX_LOST", "/nowhere/c.xml");
  const ConfigOutcome named = readVariable("QX_LOST");
  EXPECT_EQ(named.thrown, 1026);
  EXPECT_EQ(named.thrownText, "FontConfig file is not found: /nowhere/c.xml");
  EXPECT_EQ(readVariable(nullptr).thrownText, "FontConfig file is not found: ");
}

TEST_F(ConfigRoot, NoNameNeverReadsTheFileBesideTheModule) {
  world.folder("/usr/share/fonts");
  world.setModulePath("/service/");
  world.file("/service/font-config.xml",
             "<font-config><font-folder path=\"/beside\"/></font-config>");
  readVariable(nullptr);
  EXPECT_EQ(registry->folders()[0].getText(), icu::UnicodeString("/usr/share/fonts/"));
  readVariable("QX_NOT_SET");
  EXPECT_EQ(registry->folders()[0].getText(), icu::UnicodeString("/beside/"))
      << "a name without a value means the file beside the module";
}

}  // namespace
}  // namespace QXFontService_NS
