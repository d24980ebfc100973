#include "qxcommon/error.h"

namespace QXCommonNS {

QXErrorLevel getErrorLevel(unsigned short code) {
  return static_cast<QXErrorLevel>(code & QXERRORLEVEL_COLLECT);
}

QXError::QXError() = default;

QXError::QXError(unsigned short code, const UnicodeString& message, const UnicodeString& second,
                 int number1, int number2, const UnicodeString& third)
    : code_(code),
      message_(message),
      secondText_(second),
      firstNumber_(number1),
      secondNumber_(number2),
      thirdText_(third) {}

QXError::QXError(const QXError& other) = default;
QXError& QXError::operator=(const QXError& other) = default;
QXError::~QXError() = default;

void QXError::setErrorCode(unsigned short code) {
  code_ = code;
}

unsigned short QXError::getErrorCode() const {
  return code_;
}
const UnicodeString& QXError::getErrorMessage() const {
  return message_;
}
const UnicodeString& QXError::getSecondText() const {
  return secondText_;
}
int QXError::getFirstNumber() const {
  return firstNumber_;
}
int QXError::getSecondNumber() const {
  return secondNumber_;
}
const UnicodeString& QXError::getThirdText() const {
  return thirdText_;
}

}  // namespace QXCommonNS
