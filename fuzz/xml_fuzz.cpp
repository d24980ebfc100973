#include "qxcommon/xml_util.h"

#include "support/memory_platform.h"
#include "target.h"

namespace qxfuzz {
namespace {

using namespace QXCommonNS;  // a file of one purpose

std::vector<std::string> seeds() {
  return {"<a v='1'><b/>text&amp;&#65;</a>",
          "<?xml version='1.0' encoding='UTF-16'?><!DOCTYPE a [<!ENTITY x 'y'>]><a>&x;</a>",
          std::string("\xFF\xFE<\0a\0>\0<\0/\0a\0>\0", 16), "<a><b></a></b><![CDATA[x]]><!-- c -->",
          "<?xml version='1.0' encoding='ISO-8859-1'?><\xE9 v=\"\xE8\"/>"};
}

void run(std::string_view input) {
  static qxtest::MemoryPlatform world;
  static const qxtest::PlatformInPlace inPlace(world);
  world.file("/x.xml", std::string(input));
  const QXPtr<QXXmlParser> parser = QXXmlUtil::createXmlParser(nullptr);
  if (!parser->open(QXUri(u"/x.xml", URISTR_USER), UnicodeString(), UnicodeString())) return;
  while (parser->next() != 1) {
    QXNameEnum name = QXNAME_TRUE;
    UnicodeString value;
    parser->getName(&name);
    parser->getAttribute(&value, nullptr, QXName(UnicodeString(u"v")));
  }
}

}  // namespace

extern const Target kXml;
const Target kXml{"xml", "documents, through the XML adapter", &seeds, &run};

}  // namespace qxfuzz
