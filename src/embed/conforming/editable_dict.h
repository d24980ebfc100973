#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

#include "common/bytes/byte_view.h"

namespace QXFontService_NS::embed::conforming {

/// A DICT of a CFF font taken apart, so that operands can be replaced by others of any value.
class EditableDict {
 public:
  explicit EditableDict(QXCommonNS::bytes::ByteView dict);

  [[nodiscard]] bool has(unsigned op) const;
  /// The last operand of an operator, and the one before it; 0 where there is none. Of an operator
  /// that stands there twice, those of the second.
  [[nodiscard]] std::int32_t last(unsigned op) const;
  [[nodiscard]] std::int32_t beforeLast(unsigned op) const;

  /// Replaces all operands of an operator by integers of five bytes each, which keep the size of
  /// the DICT the same from one call to the next.
  void set(unsigned op, std::initializer_list<std::uint32_t> operands);

  [[nodiscard]] std::string bytes() const;

 private:
  struct Entry {
    std::string operands;  // as they stand in the DICT
    unsigned op = 0;
    std::int32_t last = 0;
    std::int32_t beforeLast = 0;
  };

  [[nodiscard]] const Entry* find(unsigned op) const;

  std::vector<Entry> entries_;
};

}  // namespace QXFontService_NS::embed::conforming
