#include "embed/charstring/type1_encoder.h"

#include <cstdint>

#include "embed/charstring/type1_operators.h"

namespace QXFontService_NS::charstring {
namespace {

// The cipher of Type 1 charstrings.
constexpr std::uint16_t kStart = 4330;
constexpr std::uint32_t kFactor = 52845;
constexpr std::uint32_t kTerm = 22719;

void appendByte(std::string& out, std::int64_t value) {
  out += static_cast<char>(value & 0xFF);
}

void appendNumber(std::string& out, std::int64_t value) {
  if (value >= -107 && value <= 107) {
    appendByte(out, value + 139);
  } else if (value >= 108 && value <= 1131) {
    appendByte(out, ((value - 108) >> 8) + 247);
    appendByte(out, value - 108);
  } else if (value >= -1131 && value <= -108) {
    appendByte(out, ((-value - 108) >> 8) + 251);
    appendByte(out, -value - 108);
  } else {
    appendByte(out, 255);
    for (int shift = 24; shift >= 0; shift -= 8) appendByte(out, value >> shift);
  }
}

}  // namespace

std::string type1Bytes(const FS_CharStringTokens& tokens) {
  std::string bytes;
  for (const QXCommonNS::QXValue& token : tokens) {
    if (token.isName()) {
      bytes += type1Operator(embed::keywordOf(token));
    } else {
      appendNumber(bytes, token.getIntegerValue());
    }
  }
  return bytes;
}

void encryptCharString(std::string& bytes) {
  std::uint16_t r = kStart;
  for (char& byte : bytes) {
    const auto cipher = static_cast<std::uint8_t>(static_cast<std::uint8_t>(byte) ^ (r >> 8));
    r = static_cast<std::uint16_t>((std::uint32_t{cipher} + r) * kFactor + kTerm);
    byte = static_cast<char>(cipher);
  }
}

void encodeCharString(const FS_CharStringTokens& tokens, std::ostream& out) {
  std::string bytes = type1Bytes(tokens);
  encryptCharString(bytes);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

}  // namespace QXFontService_NS::charstring
