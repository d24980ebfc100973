#include <gtest/gtest.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <string>

#include "qxcommon/xml_util.h"

#include "support/memory_platform.h"

namespace QXCommonNS {
namespace {

using std::string_literals::operator""s;

std::string utf8(const UnicodeString& text) {
  std::string bytes;
  text.toUTF8String(bytes);
  return bytes;
}

class XmlParser : public testing::Test {
 protected:
  QXPtr<QXXmlParser> open(const std::string& document) {
    world_.file("/x.xml", document);
    QXPtr<QXXmlParser> parser = QXXmlUtil::createXmlParser(nullptr);
    EXPECT_TRUE(parser->open(QXUri(u"/x.xml", URISTR_USER), UnicodeString(), UnicodeString()));
    return parser;
  }

  static std::string name(QXXmlParser& parser) {
    QXNameEnum name = QXNAME_TRUE;
    EXPECT_EQ(parser.getName(&name), &name);
    return utf8(QXNameTable::getSharedNameString(name));
  }

  static std::string attribute(QXXmlParser& parser, const char16_t* key) {
    UnicodeString value(u"old");
    EXPECT_EQ(parser.getAttribute(&value, nullptr, QXName(UnicodeString(key))), &value);
    return utf8(value);
  }

  /// "<a" and "/a" for the tags of a document, "v=..." for the attribute of that name.
  std::string tags(const std::string& document, std::size_t most = 1000) {
    const QXPtr<QXXmlParser> parser = open(document);
    std::string told;
    for (std::size_t i = 0; i < most; ++i) {
      const int type = parser->next();
      EXPECT_EQ(parser->getEventType(), type);
      if (type == 1) return told;
      if (!told.empty()) told += ' ';
      told += (type == 2 ? '<' : '/') + name(*parser);
      const std::string value = attribute(*parser, u"v");
      if (!value.empty()) told += " v=" + value;
    }
    return told + " ...";
  }

  qxtest::MemoryPlatform world_;
  qxtest::PlatformInPlace inPlace_{world_};
};

TEST_F(XmlParser, TellsStartAndEndTags) {
  EXPECT_EQ(tags("<a><b v='1'>text<c/></b><!-- <x> --><?pi <y>?></a>"), "<a <b v=1 <c /c /b /a");
  EXPECT_EQ(tags("<a/>"), "<a /a");
  EXPECT_EQ(tags("<a><![CDATA[<b></a>]]></a>"), "<a /a");
  EXPECT_EQ(tags("<p:a xmlns:p='u'/>"), "<p:a /p:a");
}

TEST_F(XmlParser, StandsBeforeTheStartAndStaysAtTheEnd) {
  const QXPtr<QXXmlParser> parser = open("<a/>");
  EXPECT_EQ(parser->getEventType(), 0);
  EXPECT_EQ(name(*parser), "");
  EXPECT_EQ(parser->next(), 2);
  EXPECT_EQ(parser->next(), 3);
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(parser->next(), 1);
    EXPECT_EQ(parser->getEventType(), 1);
    EXPECT_EQ(name(*parser), "");
    EXPECT_EQ(attribute(*parser, u"v"), "");
  }
}

TEST_F(XmlParser, AnAbsentAttributeIsTheEmptyText) {
  const QXPtr<QXXmlParser> parser = open("<a path='p' empty=''></a>");
  EXPECT_EQ(parser->next(), 2);
  EXPECT_EQ(attribute(*parser, u"path"), "p");
  EXPECT_EQ(attribute(*parser, u"empty"), "");
  EXPECT_EQ(attribute(*parser, u"none"), "");
  EXPECT_EQ(attribute(*parser, u"PATH"), "");
  EXPECT_EQ(parser->next(), 3);
  EXPECT_EQ(attribute(*parser, u"path"), "");
}

TEST_F(XmlParser, AttributesKnowTheFiveEntitiesAndNumbers) {
  EXPECT_EQ(tags("<a v='&lt;&gt;&amp;&quot;&apos;&#65;&#x42;'/>"), "<a v=<>&\"'AB /a");
  EXPECT_EQ(tags("<a v='x\ty\nz'/>"), "<a v=x y z /a");
  EXPECT_EQ(tags("<a v='\xE3\x81\x82'/>"), "<a v=\xE3\x81\x82 /a");
}

TEST_F(XmlParser, AFaultEndsTheDocumentAndLeavesWhatCameBefore) {
  EXPECT_EQ(tags("<a><b/><c v='&x;'/></a>"), "<a <b /b");
  EXPECT_EQ(tags("<a><b/>&x;<c/></a>"), "<a <b /b");
  EXPECT_EQ(tags("<a><b/>&#x110000;<c/></a>"), "<a <b /b");
  EXPECT_EQ(tags("<a><b/><c v='1' v='2'/></a>"), "<a <b /b");
  EXPECT_EQ(tags("<a><b/><c v=1/></a>"), "<a <b /b");
  EXPECT_EQ(tags("<a><b>"), "<a <b");
  EXPECT_EQ(tags("<a></a><b/>"), "<a /a");
  EXPECT_EQ(tags("<a>\x01</a>"), "<a");
  EXPECT_EQ(tags("<a>\xFF</a>"), "<a");
  EXPECT_EQ(tags(""), "");
  EXPECT_EQ(tags("plain text"), "");
}

// The configuration tells a wrong end tag by its name, so it must come as it is written.
TEST_F(XmlParser, AWrongEndTagIsToldAndClosesTheInnermostElement) {
  EXPECT_EQ(tags("<a><b></c><d/></a>"), "<a <b /c <d /d /a");
  EXPECT_EQ(tags("<a><b><c></b></b></a>"), "<a <b <c /b /b /a");
  EXPECT_EQ(tags("<a><b></a><c v='1'/></a>"), "<a <b /a <c v=1 /c /a");
  EXPECT_EQ(tags("<a><b></x \n><b></y></a>"), "<a <b /x <b /y /a");
  EXPECT_EQ(tags("<a></b>"), "<a /b");
  EXPECT_EQ(tags("<a></b></a>"), "<a /b");
  EXPECT_EQ(tags("<a></b><c/>"), "<a /b");
  EXPECT_EQ(tags("<a><b/></b></a>"), "<a <b /b /b");
  EXPECT_EQ(tags("<a><b></bb></a>"), "<a <b /bb /a");
  EXPECT_EQ(tags("<\xE3\x81\x82><b></\xE3\x81\x82></\xE3\x81\x82>"),
            "<\xE3\x81\x82 <b /\xE3\x81\x82 /\xE3\x81\x82");
}

TEST_F(XmlParser, WrongEndTagsFarIntoTheDocument) {
  const std::string blanks(200000, ' ');
  EXPECT_EQ(tags("<a>" + blanks + "<b>" + blanks + "</c>" + blanks + "<d></e></a>"),
            "<a <b /c <d /e /a");
}

TEST_F(XmlParser, AfterTenThousandWrongEndTagsTheDocumentEnds) {
  std::string document = "<a>";
  for (int i = 0; i < 10001; ++i) document += "<b></c>";
  const QXPtr<QXXmlParser> parser = open(document + "</a>");
  int starts = 0;
  int ends = 0;
  for (int type = parser->next(); type != 1; type = parser->next()) {
    starts += type == 2;
    ends += type == 3;
  }
  EXPECT_EQ(starts, 10002);
  EXPECT_EQ(ends, 10000);
}

TEST_F(XmlParser, LongNamesCannotMakeWrongEndTagsCostly) {
  std::string document = "<" + std::string(1 << 20, 'n') + ">";
  for (int i = 0; i < 1000; ++i) document += "<b></c>";
  const QXPtr<QXXmlParser> parser = open(document);
  int ends = 0;
  for (int type = parser->next(); type != 1; type = parser->next()) ends += type == 3;
  EXPECT_EQ(ends, 64);
}

TEST_F(XmlParser, TheDocumentTypeIsNotRead) {
  EXPECT_EQ(tags("<!DOCTYPE a><a/>"), "<a /a");
  EXPECT_EQ(tags("<?xml version='1.0'?>\n<!-- <!DOCTYPE x> -->\n<!DOCTYPE a SYSTEM \"x>y\" [\n"
                 "<!-- ]> ' --><?p ]> ?><!ENTITY e ']>'><!ATTLIST a v CDATA 'd'>]  >\n<a/>"),
            "<a /a");
  EXPECT_EQ(tags("<!DOCTYPE a [<!ENTITY e 'x'>]><a><b/>&e;<c/></a>"), "<a <b /b");
  EXPECT_EQ(tags("<!DOCTYPE a [<!ENTITY e SYSTEM '/etc/passwd'>]><a v='&e;'/>"), "");
  EXPECT_EQ(tags("<!DOCTYPE a [<!ENTITY e 'x'>]><!DOCTYPE a [<!ENTITY e 'x'>]><a v='&e;'/>"), "");
  EXPECT_EQ(tags("<a/><!DOCTYPE a>"), "<a /a");
  EXPECT_EQ(tags("<!DOCTYPE a [<a/>"), "");
  EXPECT_EQ(tags("<!DOCTYPE a"), "");
}

TEST_F(XmlParser, EntityBombsDoNotGoOff) {
  std::string document = "<!DOCTYPE a [<!ENTITY e0 'xxxxxxxxxx'>";
  for (int i = 1; i < 30; ++i) {
    const std::string inner = "&e" + std::to_string(i - 1) + ";";
    document += "<!ENTITY e" + std::to_string(i) + " '" + inner + inner + inner + "'>";
  }
  EXPECT_EQ(tags(document + "]><a><b/>&e29;<c/></a>"), "<a <b /b");
}

std::string inUnits(const std::string& text, bool bigEndian) {
  std::string bytes;
  const UnicodeString wide = UnicodeString::fromUTF8(text);
  for (std::int32_t i = 0; i < wide.length(); ++i) {
    const char high = static_cast<char>(wide[i] >> 8);
    const char low = static_cast<char>(wide[i] & 0xFF);
    bytes += bigEndian ? high : low;
    bytes += bigEndian ? low : high;
  }
  return bytes;
}

TEST_F(XmlParser, ReadsUtf8AndUtf16WithAndWithoutMark) {
  const std::string document = "<?xml version='1.0'?><a v='\xE3\x81\x82\xF0\x9F\x98\x80'/>";
  const std::string told = "<a v=\xE3\x81\x82\xF0\x9F\x98\x80 /a";
  EXPECT_EQ(tags("\xEF\xBB\xBF" + document), told);
  EXPECT_EQ(tags("\xFE\xFF" + inUnits(document, true)), told);
  EXPECT_EQ(tags("\xFF\xFE" + inUnits(document, false)), told);
  EXPECT_EQ(tags(inUnits(document, true)), told);
  EXPECT_EQ(tags(inUnits(document, false)), told);
}

TEST_F(XmlParser, TheDeclarationNamesTheEncoding) {
  EXPECT_EQ(tags("<?xml version='1.0' encoding='Shift_JIS'?><a v='\x82\xA0'/>"),
            "<a v=\xE3\x81\x82 /a");
  EXPECT_EQ(tags("<?xml version=\"1.0\" encoding = \"iso-8859-1\" ?><a v='\xE9'/>"),
            "<a v=\xC3\xA9 /a");
  EXPECT_EQ(tags("<?xml version='1.0' encoding='utf-8'?><a v='\xC3\xA9'/>"), "<a v=\xC3\xA9 /a");
  // A mark is believed before the declaration, which is left as it was when files were converted.
  EXPECT_EQ(tags("\xEF\xBB\xBF<?xml version='1.0' encoding='Shift_JIS'?><a v='\xC3\xA9'/>"),
            "<a v=\xC3\xA9 /a");
  EXPECT_EQ(tags("\xFF\xFE" + inUnits("<?xml version='1.0' encoding='UTF-8'?><a/>", false)),
            "<a /a");
  EXPECT_EQ(tags("<?xml version='1.0' encoding='no-such-code'?><a/>"), "");
}

TEST_F(XmlParser, WhatStandsBeforeADamagedCharacterIsRead) {
  EXPECT_EQ(tags("<?xml version='1.0' encoding='Shift_JIS'?><a><b/><c v='\x82'/></a>"), "<a <b /b");
  std::string wide = "\xFE\xFF" + inUnits("<a><b/><c/></a>", true);
  wide.replace(2 + 14, 2, "\xD8\x01");  // a lone surrogate in the place of "<" of "<c/>"
  EXPECT_EQ(tags(wide), "<a <b /b");
}

TEST_F(XmlParser, LongDocumentsOfOtherEncodingsAreConvertedWhole) {
  std::string document = "<?xml version='1.0' encoding='Shift_JIS'?><a>";
  for (int i = 0; i < 3000; ++i) document += "<b v='\x82\xA0'/>";
  const QXPtr<QXXmlParser> parser = open(document + "</a>");
  int starts = 0;
  for (int type = parser->next(); type != 1; type = parser->next()) starts += type == 2;
  EXPECT_EQ(starts, 3001);
}

TEST_F(XmlParser, SixteenMebibytesAreTheMost) {
  const std::string document = "<a></a>";
  const std::size_t most = std::size_t{16} << 20;
  EXPECT_EQ(tags(document + std::string(most - document.size(), '\n')), "<a /a");
  EXPECT_EQ(tags(document + std::string(most - document.size() + 1, '\n')), "");
}

TEST_F(XmlParser, ElementsNest256Deep) {
  std::string open256;
  for (int i = 0; i < 256; ++i) open256 += "<a>";
  const auto count = [](const std::string& told) {
    return std::count(told.begin(), told.end(), '<');
  };
  EXPECT_EQ(count(tags(open256 + "</a>")), 256);
  EXPECT_EQ(count(tags(open256 + "<a/>")), 256);
  EXPECT_EQ(tags(open256 + "<b/>").find("/b"), std::string::npos);
  EXPECT_EQ(count(tags(open256 + "</a><a/>")), 257);
}

TEST_F(XmlParser, AttributesHoldOneMebibyte) {
  const std::string most(std::size_t{1} << 20, 'x');
  EXPECT_EQ(tags("<a><b v='" + most + "'/></a>").size(), most.size() + 14);
  EXPECT_EQ(tags("<a><b v='" + most + "x'/></a>"), "<a");
}

TEST_F(XmlParser, AttributesOfOneElementAreNotCounted) {
  std::string document = "<a";
  for (int i = 0; i < 100000; ++i) document += " k" + std::to_string(i) + "=''";
  EXPECT_EQ(tags(document + " v='x'/>"), "<a v=x /a");
  EXPECT_EQ(tags("<a/>" + document), "<a /a") << "a tag without its end is none";
  EXPECT_EQ(tags(document + " k0=''/>"), "") << "one key twice is a fault";
}

TEST_F(XmlParser, ALongTokenIsReadInLinearTime) {
  EXPECT_EQ(tags("<a><!--" + std::string(std::size_t{15} << 20, '-' + 1) + "--><b/></a>"),
            "<a <b /b /a");
}

TEST_F(XmlParser, CutAtEveryByteItTellsTheTagsThatAreWhole) {
  const std::string document =
      "\xEF\xBB\xBF<?xml version='1.0'?><!DOCTYPE a [<!ENTITY e 'x'>]><a v='1'><b></c>"
      "<![CDATA[x]]><d v='&lt;'/><!-- c --></a>\n";
  const std::string whole = tags(document);
  EXPECT_EQ(whole, "<a v=1 <b /c <d v=< /d /a");
  for (std::size_t size = 0; size < document.size(); ++size) {
    const std::string told = tags(document.substr(0, size));
    EXPECT_EQ(whole.substr(0, told.size()), told) << size;
  }
}

TEST_F(XmlParser, AFileThatIsNotThereIsAnEmptyDocument) {
  const QXPtr<QXXmlParser> parser = QXXmlUtil::createXmlParser(nullptr);
  EXPECT_EQ(parser->next(), 1);
  EXPECT_FALSE(parser->open(QXUri(u"/none.xml", URISTR_USER), UnicodeString(), UnicodeString()));
  EXPECT_EQ(parser->next(), 1);
  EXPECT_EQ(world_.openStreams(), 0u);
}

TEST_F(XmlParser, ClosesTheFileOnceItIsOpenedAndMayBeOpenedAgain) {
  const QXPtr<QXXmlParser> parser = open("<a>");
  EXPECT_EQ(world_.openStreams(), 0u);
  EXPECT_EQ(parser->next(), 2);
  world_.file("/y.xml", "<b/>");
  EXPECT_TRUE(parser->open(QXUri(u"/y.xml", URISTR_USER), UnicodeString(), UnicodeString()));
  EXPECT_EQ(parser->getEventType(), 0);
  EXPECT_EQ(parser->next(), 2);
  EXPECT_EQ(name(*parser), "b");
}

}  // namespace
}  // namespace QXCommonNS
