#include "qxcommon/value.h"

#include <memory>

#include "common/number/format_number.h"
#include "common/value/value_body.h"

namespace QXCommonNS {

constinit const QXValue QXValue::NULL_VALUE;

QXValue::QXValue(const UnicodeString& text, QXUnitType)
    : tag_(TAG_STRING), content_(new Body(text)) {}

void QXValue::addReference() const noexcept {
  content_.body->references.fetch_add(1, std::memory_order_relaxed);
}

void QXValue::dropReference() const noexcept {
  if (content_.body->references.fetch_sub(1, std::memory_order_acq_rel) == 1) delete content_.body;
}

int QXValue::getIntegerValue() const {
  if (tag_ == TAG_INTEGER) return content_.integer;
  return tag_ == TAG_REAL ? number::toInteger(content_.real) : 0;
}

float QXValue::getRealValue(QXUnitType) const {
  return number::toFloat(getDoubleValue());
}

double QXValue::getDoubleValue() const {
  if (tag_ == TAG_INTEGER) return content_.integer;
  return tag_ == TAG_REAL ? content_.real : 0;
}

QXNameEnum QXValue::getNameValue() const {
  return tag_ == TAG_NAME ? content_.name : QXNAME_EMPTY;
}

const QXValue& QXValue::getNamedItem(QXName name) const {
  if (tag_ != TAG_DICTIONARY) return NULL_VALUE;
  const auto found = content_.body->items.find(name);
  return found != content_.body->items.end() ? found->second : NULL_VALUE;
}

void QXValue::setNamedItem(QXName name, const QXValue& value) {
  QXValue item = value;  // it may be this value or an item of it
  ownDictionary().items[name] = std::move(item);
}

/// Makes this value a dictionary that no other value shares.
QXValue::Body& QXValue::ownDictionary() {
  if (tag_ == TAG_DICTIONARY && content_.body->references.load(std::memory_order_acquire) == 1) {
    return *content_.body;
  }
  auto body =
      tag_ == TAG_DICTIONARY ? std::make_unique<Body>(*content_.body) : std::make_unique<Body>();
  QXValue owner;
  owner.tag_ = TAG_DICTIONARY;
  owner.content_.body = body.release();
  owner.swap(*this);
  return *content_.body;
}

}  // namespace QXCommonNS
