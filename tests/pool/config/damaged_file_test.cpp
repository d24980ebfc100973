#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "common/limits.h"
#include "pool/config/config_fixture.h"

namespace QXFontService_NS {
namespace {

using qxtest::ConfigOutcome;

constexpr const char* kWhole =
    "<?xml version=\"1.0\"?><!-- fonts -->"
    "<font-config use-preferred-family=\"no\">"
    "<font-folder path=\"/f\"><font-exclude file=\"x.ttf\"/>"
    "<font-alias file=\"a.ttf\"><alias family-name=\"Other\"/></font-alias></font-folder>"
    "<font-folder path=\"/g\"/>"
    "<eudc-processing mapping=\"enable\"><eudc-range start=\"57344\" end=\"57345\"/>"
    "</eudc-processing></font-config>";

/// The encodings of a configuration file; those of 16 bits begin with a byte order mark.
enum class Encoding { utf8, utf16Little, utf16Big };

std::string encoded(const std::string& text, Encoding encoding) {
  if (encoding == Encoding::utf8) return text;
  const bool little = encoding == Encoding::utf16Little;
  std::string bytes = little ? "\xFF\xFE" : "\xFE\xFF";
  for (const char unit : text) {
    bytes += little ? std::string{unit, '\0'} : std::string{'\0', unit};
  }
  return bytes;
}

/// How much of the text is there in whole when `size` bytes of the file are.
std::string textOf(const std::string& text, Encoding encoding, std::size_t size) {
  if (encoding == Encoding::utf8) return text.substr(0, size);
  return text.substr(0, size < 2 ? 0 : (size - 2) / 2);
}

class DamagedConfig : public qxtest::ConfigTest {
 protected:
  [[nodiscard]] std::vector<std::string> folders() const {
    std::vector<std::string> paths;
    for (std::size_t i = 0; i < registry->folders().size(); ++i) {
      std::string path;
      paths.push_back(registry->folders()[i].getText().toUTF8String(path));
    }
    return paths;
  }

  /// Everything whose tag was whole holds, nothing else does, and nothing is collected.
  void expectReadUpTo(const ConfigOutcome& outcome, const std::string& there) {
    const auto has = [&](const char* text) { return there.find(text) != std::string::npos; };
    std::vector<std::string> wanted;
    if (has("<font-folder path=\"/f\">")) wanted.emplace_back("/f/");
    if (has("<font-folder path=\"/g\"/>")) wanted.emplace_back("/g/");
    EXPECT_EQ(folders(), wanted);
    EXPECT_EQ(outcome.thrown, wanted.empty() ? 1027 : 0);
    EXPECT_TRUE(outcome.collected.empty());
    EXPECT_EQ(registry->settings().usePreferredFamily, !has("family=\"no\">"));
    EXPECT_EQ(registry->settings().eudcSet.contains(57345), has("end=\"57345\"/>"));
    if (!wanted.empty()) {
      EXPECT_EQ(folder().findOptions(u"x.ttf") != nullptr, has("file=\"x.ttf\"/>"));
      EXPECT_EQ(folder().aliases.size(), has("<font-alias file=\"a.ttf\">") ? 1U : 0U);
    }
  }

  void cutEverywhere(Encoding encoding) {
    const std::string bytes = encoded(kWhole, encoding);
    for (std::size_t size = 0; size <= bytes.size(); ++size) {
      SCOPED_TRACE(size);
      expectReadUpTo(read(bytes.substr(0, size)), textOf(kWhole, encoding, size));
    }
  }
};

TEST_F(DamagedConfig, CutAtEveryByteItEndsThereAndWhatWasReadHolds) {
  cutEverywhere(Encoding::utf8);
}

TEST_F(DamagedConfig, CutAtEveryByteInLittleEndianUtf16) {
  cutEverywhere(Encoding::utf16Little);
}

TEST_F(DamagedConfig, CutAtEveryByteInBigEndianUtf16) {
  cutEverywhere(Encoding::utf16Big);
}

TEST_F(DamagedConfig, EachByteMayBeAnything) {
  const std::string whole = kWhole;
  for (std::size_t at = 0; at < whole.size(); ++at) {
    for (const char byte : {'\0', '<', '>', '&', '"', '\x80', '\xFF'}) {
      std::string changed = whole;
      changed[at] = byte;
      const ConfigOutcome outcome = read(changed);
      EXPECT_TRUE(outcome.thrown == 0 || (outcome.thrown >= 1027 && outcome.thrown <= 1029))
          << at << ": " << outcome.thrownText;
    }
  }
}

TEST_F(DamagedConfig, DamageBehindAFolderLeavesIt) {
  const std::vector<std::string> damages = {"<",
                                            "&",
                                            "&undefined;",
                                            "<a b=\"&undefined;\"/>",
                                            "&#0;",
                                            "&#x110000;",
                                            "\xFF",
                                            "<a b='1' b='2'/>",
                                            "<!-- --- -->",
                                            "]]>",
                                            "<![CDATA[",
                                            "<?xml version=\"1.0\"?>",
                                            "<font-folder path=\"/g\"",
                                            "<font-folder path=/g/>"};
  for (const std::string& damage : damages) {
    const ConfigOutcome outcome = read("<font-config><font-folder path=\"/f\"/>" + damage +
                                       "<font-folder path=\"/g\"/></font-config>");
    EXPECT_EQ(outcome.thrown, 0) << damage;
    EXPECT_TRUE(outcome.collected.empty()) << damage;
    EXPECT_EQ(folders(), std::vector<std::string>{"/f/"}) << damage;
  }
}

TEST_F(DamagedConfig, EntitiesOfADoctypeAreNotExpanded) {
  std::string bomb = "<!DOCTYPE font-config [<!ENTITY e0 \"/g\">";
  for (int i = 1; i < 30; ++i) {
    const std::string below = "&e" + std::to_string(i - 1) + ";";
    bomb += "<!ENTITY e" + std::to_string(i) + " \"" + below + below + "\">";
  }
  const ConfigOutcome outcome =
      read(bomb +
           "]><font-config><font-folder path=\"/f\"/><font-folder path=\"&e29;\"/>"
           "<font-folder path=\"/h\"/></font-config>");
  EXPECT_EQ(outcome.thrown, 0);
  EXPECT_EQ(folders(), std::vector<std::string>{"/f/"}) << "the reference is the end of the file";
}

TEST_F(DamagedConfig, NoOtherFileIsEverOpened) {
  world.file("/etc/passwd", "/g").file("/etc/qx/more.dtd", "<!ENTITY more \"/g\">");
  const ConfigOutcome outcome = read(
      "<!DOCTYPE font-config SYSTEM \"more.dtd\" [<!ENTITY % p SYSTEM \"more.dtd\"> %p;"
      "<!ENTITY x SYSTEM \"file:///etc/passwd\">]>"
      "<font-config><font-folder path=\"/f\"/><font-folder path=\"&x;\"/></font-config>");
  EXPECT_EQ(outcome.thrown, 0);
  EXPECT_EQ(folders(), std::vector<std::string>{"/f/"});
  EXPECT_EQ(world.openedPaths(), std::vector<std::string>{kPath});
}

TEST_F(DamagedConfig, ADoctypeWithoutEntitiesIsPassedOver) {
  EXPECT_EQ(read("<!DOCTYPE font-config [<!ELEMENT font-config ANY>]>"
                 "<font-config><font-folder path=\"/f\"/></font-config>")
                .thrown,
            0);
}

TEST_F(DamagedConfig, AFileThatIsTooLongIsNoDocument) {
  const std::string head = "<font-config><font-folder path=\"/f\"/>";
  const std::string tail = "</font-config>";
  const std::size_t room = QXCommonNS::limits::kMostXmlBytes - head.size() - tail.size();
  EXPECT_EQ(read(head + std::string(room, ' ') + tail).thrown, 0);
  EXPECT_EQ(read(head + std::string(room + 1, ' ') + tail).thrown, 1027);
}

TEST_F(DamagedConfig, ALongAttributeIsTheEndOfTheFile) {
  const std::string path = "/" + std::string(QXCommonNS::limits::kMostXmlAttributeBytes, 'x');
  read("<font-config><font-folder path=\"/f\"/><font-folder path=\"" + path +
       "\"/><font-folder path=\"/g\"/></font-config>");
  EXPECT_EQ(folders(), std::vector<std::string>{"/f/"});
}

TEST_F(DamagedConfig, TenThousandFoldersAreAllKept) {
  std::string elements;
  for (int i = 0; i < 10'000; ++i)
    elements += "<font-folder path=\"/f" + std::to_string(i) + "\"/>";
  EXPECT_EQ(read("<font-config>" + elements + "</font-config>").thrown, 0);
  EXPECT_EQ(registry->folders().size(), 10'000U);
}

}  // namespace
}  // namespace QXFontService_NS
