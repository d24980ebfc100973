#include "common/xml/expat_xml_parser.h"

#include <string>

#include "qxcommon/xml_util.h"

#include "common/bytes/stream_read.h"
#include "common/limits.h"
#include "common/xml/doctype.h"
#include "common/xml/utf8_document.h"

namespace QXCommonNS {
namespace xml {
namespace {

// A file that is too long is no document.
std::string readDocument(std::istream& stream) {
  const std::vector<std::byte> bytes = bytes::readBlock(stream, 0, limits::kMostXmlBytes + 1);
  if (bytes.size() > limits::kMostXmlBytes) return {};
  std::string document = documentInUtf8(
      {static_cast<const char*>(static_cast<const void*>(bytes.data())), bytes.size()});
  cutDoctype(document);
  return document;
}

}  // namespace

bool ExpatXmlParser::open(const QXUri& uri, const UnicodeString&, const UnicodeString&) {
  reader_.reset();
  tag_ = {};
  eventType_ = kEndOfDocument;
  const std::unique_ptr<std::istream> stream(uri.getIStream(nullptr, nullptr));
  if (!stream) return false;
  reader_ = std::make_unique<ExpatReader>(readDocument(*stream));
  eventType_ = kStartOfDocument;
  return true;
}

int ExpatXmlParser::next() {
  if (reader_ && reader_->next(tag_)) {
    eventType_ = tag_.isStart ? kStartTag : kEndTag;
  } else {
    tag_ = {};
    eventType_ = kEndOfDocument;
  }
  return eventType_;
}

int ExpatXmlParser::getEventType() {
  return eventType_;
}

QXNameEnum* ExpatXmlParser::getName(QXNameEnum* out) {
  *out = QXName(UnicodeString::fromUTF8(tag_.name)).getNameEnum();
  return out;
}

UnicodeString* ExpatXmlParser::getAttribute(UnicodeString* out, QXName*, QXName name) {
  std::string wanted;
  QXNameTable::getSharedNameString(name.getNameEnum()).toUTF8String(wanted);
  out->remove();
  for (const auto& [key, value] : tag_.attributes) {
    if (key == wanted) *out = UnicodeString::fromUTF8(value);
  }
  return out;
}

}  // namespace xml

QXPtr<QXXmlParser> QXXmlUtil::createXmlParser(const QXUri::ContentInfo*) {
  return QXPtr<QXXmlParser>(new xml::ExpatXmlParser);
}

}  // namespace QXCommonNS
