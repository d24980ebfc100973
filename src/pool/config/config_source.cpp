#include "pool/config/config_source.h"

#include "qxcommon/name.h"
#include "qxcommon/xml_util.h"

#include "font/contract/keywords.h"

namespace QXFontService_NS::config {
namespace {

using QXCommonNS::QXName;
using QXCommonNS::QXNameEnum;
using QXCommonNS::QXNameTable;

constexpr int kStartTag = 2;
constexpr int kEndTag = 3;
constexpr int kEndOfDocument = 1;

}  // namespace

ConfigSource::ConfigSource(const QXUri& uri)
    : uri_(uri),
      path_(uri.getLocalPath(false)),
      parser_(QXCommonNS::QXXmlUtil::createXmlParser(nullptr)),
      open_(parser_->open(uri, UnicodeString(), UnicodeString())) {}

Event ConfigSource::next() {
  if (!open_) return Event::finished;
  while (parser_->next() != kEndOfDocument) {
    switch (parser_->getEventType()) {
      case kStartTag:
        return Event::start;
      case kEndTag:
        return Event::end;
      default:
        break;
    }
  }
  open_ = false;
  return Event::finished;
}

UnicodeString ConfigSource::name() const {
  QXNameEnum name = QXCommonNS::QXNAME_EMPTY;
  return QXNameTable::getSharedNameString(*parser_->getName(&name));
}

int ConfigSource::word() const {
  return FS_KeywordIndex(name());
}

UnicodeString ConfigSource::attribute(Word name) const {
  UnicodeString value;
  QXName scratch(QXCommonNS::QXNAME_EMPTY);
  return *parser_->getAttribute(&value, &scratch, FS_KeywordName(name));
}

}  // namespace QXFontService_NS::config
