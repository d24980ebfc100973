#pragma once

#include <memory>

#include "qxcommon/xml_parser.h"

#include "common/xml/expat_reader.h"

namespace QXCommonNS::xml {

/// The pull parser over expat.
class ExpatXmlParser final : public QXXmlParser {
 public:
  QXNameEnum* getName(QXNameEnum* out) override;
  UnicodeString* getAttribute(UnicodeString* out, QXName* scratch, QXName name) override;
  int getEventType() override;
  int next() override;
  bool open(const QXUri& uri, const UnicodeString& reserved1,
            const UnicodeString& reserved2) override;

 private:
  std::unique_ptr<ExpatReader> reader_;
  TagEvent tag_;
  int eventType_ = kEndOfDocument;
};

}  // namespace QXCommonNS::xml
