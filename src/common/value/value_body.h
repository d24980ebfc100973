#pragma once

#include <atomic>
#include <map>

#include "qxcommon/value.h"

namespace QXCommonNS {

/// What copies of a value share: a text or named items, as the tag of the value says.
struct QXValue::Body {
  Body() = default;
  explicit Body(const UnicodeString& ofText) : text(ofText) {}
  Body(const Body& other) : text(other.text), items(other.items) {}  // born with one owner
  Body& operator=(const Body&) = delete;

  std::atomic<int> references{1};
  UnicodeString text;
  std::map<QXName, QXValue> items;
};

}  // namespace QXCommonNS
