#include "type1/eexec/eexec.h"

#include <cstdint>

namespace QXFontService_NS::type1 {
namespace {

constexpr std::uint16_t kEexecKey = 55665;
constexpr std::uint16_t kCharStringKey = 4330;

/// The key runs on with the cipher bytes, whichever way the bytes go.
class Cipher {
 public:
  explicit Cipher(std::uint16_t key) : key_(key) {}

  std::uint8_t decrypt(std::uint8_t cipher) {
    const auto plain = static_cast<std::uint8_t>(cipher ^ key_ >> 8);
    advance(cipher);
    return plain;
  }
  std::uint8_t encrypt(std::uint8_t plain) {
    const auto cipher = static_cast<std::uint8_t>(plain ^ key_ >> 8);
    advance(cipher);
    return cipher;
  }

 private:
  void advance(std::uint8_t cipher) {
    key_ = static_cast<std::uint16_t>((std::uint32_t{cipher} + key_) * 52845U + 22719U);
  }

  std::uint16_t key_;
};

void decryptWith(std::uint16_t key, std::string& bytes) {
  Cipher cipher(key);
  for (char& byte : bytes)
    byte = static_cast<char>(cipher.decrypt(static_cast<std::uint8_t>(byte)));
}

}  // namespace

void decryptEexec(std::string& bytes) {
  decryptWith(kEexecKey, bytes);
}

void encryptEexec(std::string& bytes) {
  Cipher cipher(kEexecKey);
  for (char& byte : bytes)
    byte = static_cast<char>(cipher.encrypt(static_cast<std::uint8_t>(byte)));
}

void decryptCharString(std::string& bytes) {
  decryptWith(kCharStringKey, bytes);
}

}  // namespace QXFontService_NS::type1
