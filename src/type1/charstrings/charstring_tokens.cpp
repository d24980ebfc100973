#include "type1/charstrings/charstring_tokens.h"

#include <algorithm>
#include <string_view>

#include "common/bytes/byte_reader.h"
#include "type1/charstrings/operator_names_data.h"
#include "type1/eexec/eexec.h"

namespace QXFontService_NS::type1 {
namespace {

using QXCommonNS::bytes::ByteReader;
using QXCommonNS::bytes::ByteView;

constexpr std::size_t kLeadBytes = 4;  // what lenIV is in nearly all fonts; it is not read
constexpr int kEscape = 12;
constexpr int kSeac = 6;

std::string escapeName(int number) {
  const auto* const found =
      std::find_if(kEscapeNames.begin(), kEscapeNames.end(),
                   [&](const EscapeName& row) { return row.number == number; });
  return found == kEscapeNames.end() ? "?12-" + std::to_string(number) : found->name;
}

QXValue textValue(const std::string& text) {
  return {UnicodeString::fromUTF8(text), QXCommonNS::QXUNIT_NONE};
}

class TokenReader {
 public:
  TokenReader(ByteView bytes, std::vector<QXValue>& tokens) : reader_(bytes), tokens_(tokens) {}

  int read() {
    while (reader_.left() > 0) {
      const QXValue token = next(reader_.u8());
      if (reader_.failed()) break;
      tokens_.push_back(token);
    }
    return seac_;
  }

 private:
  QXValue next(int first) {
    if (first == 255) return static_cast<int>(reader_.u32());
    if (first >= 251) return -(first - 251) * 256 - reader_.u8() - 108;
    if (first >= 247) return (first - 247) * 256 + reader_.u8() + 108;
    if (first >= 32) return first - 139;
    return textValue(first == kEscape ? escape() : kOperatorNames[static_cast<std::size_t>(first)]);
  }

  std::string escape() {
    const int number = reader_.u8();
    if (number == kSeac && seac_ < 0 && !reader_.failed()) seac_ = static_cast<int>(tokens_.size());
    return escapeName(number);
  }

  ByteReader reader_;
  std::vector<QXValue>& tokens_;
  int seac_ = -1;
};

}  // namespace

int readCharStringTokens(std::string bytes, std::vector<QXValue>& tokens, bool decrypted) {
  if (!decrypted) {
    decryptCharString(bytes);
    bytes.erase(0, kLeadBytes);
  }
  return TokenReader(ByteView(bytes.data(), bytes.size()), tokens).read();
}

}  // namespace QXFontService_NS::type1
