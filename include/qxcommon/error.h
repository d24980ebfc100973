#pragma once

#include "qxcommon/export.h"
#include "qxcommon/text.h"

namespace QXCommonNS {

/// How an error is reported: the bits 7 to 9 of its code.
enum QXErrorLevel : int {
  /// Any other level is thrown; errors of this one are collected.
  QXERRORLEVEL_COLLECT = 896
};

/// The level of an error.
/// @param code an error code.
/// @return 896 for codes that are collected instead of thrown (1920 to 1946 among them); another
///         value, 0 for 1024 to 1035, otherwise.
[[nodiscard]] QX_EXPORT QXErrorLevel getErrorLevel(unsigned short code);

/// An error: a code, its complete text, and four fields that this system leaves at their defaults.
///
/// It is both a report that calls fill in and what is thrown, by value. It is deliberately not a
/// `std::exception`.
class QX_EXPORT QXError {
 public:
  /// No error: code 0, empty texts, both numbers -1.
  QXError();

  /// @param code the error code; 0 means no error.
  /// @param message the complete text, ready to be shown.
  /// @param second, third empty in this system.
  /// @param number1, number2 -1 in this system.
  QXError(unsigned short code, const UnicodeString& message, const UnicodeString& second,
          int number1, int number2, const UnicodeString& third);

  QXError(const QXError& other);
  QXError& operator=(const QXError& other);
  virtual ~QXError();

  /// Changes the code alone; the message stays until another error is assigned.
  void setErrorCode(unsigned short code);

  /// The code; 0 means no error. Every test for failure reads this field.
  [[nodiscard]] unsigned short getErrorCode() const;
  /// The complete text of the error.
  [[nodiscard]] const UnicodeString& getErrorMessage() const;
  /// Always empty in this system.
  [[nodiscard]] const UnicodeString& getSecondText() const;
  /// Always -1 in this system.
  [[nodiscard]] int getFirstNumber() const;
  /// Always -1 in this system.
  [[nodiscard]] int getSecondNumber() const;
  /// Always empty in this system.
  [[nodiscard]] const UnicodeString& getThirdText() const;

 private:
  unsigned short code_ = 0;
  UnicodeString message_;
  UnicodeString secondText_;
  int firstNumber_ = -1;
  int secondNumber_ = -1;
  UnicodeString thirdText_;
};

}  // namespace QXCommonNS
