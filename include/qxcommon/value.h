#pragma once

#include <utility>

#include "qxcommon/export.h"
#include "qxcommon/name.h"
#include "qxcommon/text.h"
#include "qxcommon/util.h"

namespace QXCommonNS {

/// The unit of a number.
enum QXUnitType : int {
  QXUNIT_NONE = 0  ///< a plain number; the only unit in use
};

/// A tagged value: nothing, a number, a name, a text, or named items.
///
/// Values are cheap to copy: texts and dictionaries are shared until one of the copies changes.
/// A value may be read on any thread, and changed on one.
class QX_EXPORT QXValue {
 public:
  /// The tags.
  enum Tag : unsigned int {
    TAG_NULL = 0,
    TAG_INTEGER = 1,    ///< 32 bits, signed
    TAG_REAL = 2,       ///< held as a double, so that 16.16 numbers keep all their bits
    TAG_NAME = 3,       ///< a bare word, as a `QXNameEnum`
    TAG_STRING = 4,     ///< a text
    TAG_DICTIONARY = 5  ///< named items
  };

  /// The null value.
  constexpr QXValue() noexcept : tag_(TAG_NULL), content_(0) {}
  ///@{
  /// A number or a name.
  constexpr QXValue(int value) noexcept : tag_(TAG_INTEGER), content_(value) {}
  constexpr QXValue(double value) noexcept : tag_(TAG_REAL), content_(value) {}
  constexpr QXValue(float value) noexcept : QXValue(static_cast<double>(value)) {}
  constexpr QXValue(QXNameEnum name) noexcept : tag_(TAG_NAME), content_(name) {}
  ///@}
  /// A text. It is not parsed, whatever stands in it; that is what `QXParser` is for.
  QXValue(const UnicodeString& text, QXUnitType unit);

  QXValue(const QXValue& other) noexcept : tag_(other.tag_), content_(other.content_) {
    if (isShared()) addReference();
  }
  QXValue(QXValue&& other) noexcept : QXValue() { swap(other); }
  ~QXValue() {
    if (isShared()) dropReference();
  }
  QXValue& operator=(const QXValue& other) noexcept {
    QXValue(other).swap(*this);
    return *this;
  }
  QXValue& operator=(QXValue&& other) noexcept {
    QXValue(std::move(other)).swap(*this);
    return *this;
  }

  [[nodiscard]] Tag getTag() const { return tag_; }                     ///< What it holds.
  [[nodiscard]] bool isNull() const { return tag_ == TAG_NULL; }        ///< Nothing.
  [[nodiscard]] bool isInteger() const { return tag_ == TAG_INTEGER; }  ///< Not a real.
  [[nodiscard]] bool isReal() const { return tag_ == TAG_REAL; }        ///< Not an integer.
  [[nodiscard]] bool isName() const { return tag_ == TAG_NAME; }        ///< A bare word.

  /// The number as an integer. A real is cut toward zero and clamped to 32 bits; what is no number
  /// gives 0.
  [[nodiscard]] int getIntegerValue() const;
  /// The number as a float, clamped to its range; what is no number gives 0.
  [[nodiscard]] float getRealValue(QXUnitType unit) const;
  /// The number with all its bits; what is no number gives 0.
  [[nodiscard]] double getDoubleValue() const;
  /// The name; what is no name gives `QXNAME_EMPTY`.
  [[nodiscard]] QXNameEnum getNameValue() const;

  /// The value as text: decimal digits, the shortest decimal form that reads back to the same
  /// *float* (no exponent, no needless zeros), the text of a name, a text itself. Null and named
  /// items give an empty text.
  [[nodiscard]] UnicodeString toString() const;
  /// `toString()` between quotation marks. Inner marks are doubled.
  [[nodiscard]] UnicodeString toQuotedString(QXUtil::QuoteMode mode) const;

  /// The item of that name.
  /// @return the item, valid until this value changes or ends; `NULL_VALUE` when there is none.
  [[nodiscard]] const QXValue& getNamedItem(QXName name) const;
  /// Sets or replaces an item. A null value becomes a dictionary first; any other kind loses what
  /// it held and becomes one too.
  void setNamedItem(QXName name, const QXValue& value);

  ///@{
  /// Sum and difference. Two integers give an integer, which wraps at 32 bits; otherwise the
  /// result is a real. What is no number counts as the integer 0.
  QXValue operator+(const QXValue& other) const;
  QXValue operator-(const QXValue& other) const;
  QXValue operator-() const;
  QXValue& operator+=(const QXValue& other);
  ///@}

  /// Compares as numbers; what is no number counts as 0.
  bool operator<(const QXValue& other) const;
  /// Numbers are equal by amount (1 equals 1.0); all else by kind and content.
  bool operator==(const QXValue& other) const;
  bool operator!=(const QXValue& other) const { return !(*this == other); }

  /// The shared null value.
  static const QXValue NULL_VALUE;

 private:
  struct Body;  // a text or named items, with a reference count
  union Content {
    int integer;
    double real;
    QXNameEnum name;
    Body* body;

    constexpr explicit Content(int value) noexcept : integer(value) {}
    constexpr explicit Content(double value) noexcept : real(value) {}
    constexpr explicit Content(QXNameEnum value) noexcept : name(value) {}
    constexpr explicit Content(Body* value) noexcept : body(value) {}
  };

  [[nodiscard]] bool isShared() const { return tag_ >= TAG_STRING; }
  [[nodiscard]] bool isNumber() const { return tag_ == TAG_INTEGER || tag_ == TAG_REAL; }
  void swap(QXValue& other) noexcept {
    std::swap(tag_, other.tag_);
    std::swap(content_, other.content_);
  }
  void addReference() const noexcept;
  void dropReference() const noexcept;
  [[nodiscard]] Body& ownDictionary();

  Tag tag_;
  Content content_;
};

}  // namespace QXCommonNS
