#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "common/bytes/byte_view.h"

namespace QXFontService_NS::cff {

/// The operator numbers of DICTs that the code asks for by name; a two-byte operator 12 n is
/// 0x0C00 + n.
enum DictOperator : unsigned {
  kOpVersion = 0,
  kOpCharset = 15,
  kOpEncoding = 16,
  kOpCharStrings = 17,
  kOpPrivate = 18,
  kOpSubrs = 19,
  kOpCharstringType = 0x0C06,
  kOpRos = 0x0C1E,
  kOpFDArray = 0x0C24,
  kOpFDSelect = 0x0C25,
};

/// An operand of a DICT: an integer, or a real as its decimal text.
struct DictNumber {
  bool isReal = false;
  std::int32_t integer = 0;  ///< of an integer
  std::string text;          ///< of a real, such as "-.5E-3"
};

/// Walks the bytes of a DICT, item by item. It ends at the end of the bytes, and where an operand
/// or a two-byte operator is cut short by it.
class DictScanner {
 public:
  enum class Kind { end, number, op, reserved };

  explicit DictScanner(QXCommonNS::bytes::ByteView dict) : dict_(dict) {}

  /// Steps to the next item and tells its kind. `reserved` is byte 31 or 255, which stands for
  /// nothing.
  Kind next();

  [[nodiscard]] const DictNumber& number() const { return number_; }
  [[nodiscard]] unsigned op() const { return operator_; }
  /// First byte of the item, and the byte behind its last.
  [[nodiscard]] std::size_t begin() const { return begin_; }
  [[nodiscard]] std::size_t end() const { return end_; }

 private:
  Kind readOperator(unsigned first);
  Kind readNumber(unsigned first);
  Kind integer(std::int32_t value, std::size_t size);
  Kind readReal();
  [[nodiscard]] std::size_t sizeOf(unsigned first) const;

  QXCommonNS::bytes::ByteView dict_;
  std::size_t begin_ = 0;
  std::size_t end_ = 0;
  unsigned operator_ = 0;
  DictNumber number_;
};

}  // namespace QXFontService_NS::cff
