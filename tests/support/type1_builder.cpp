#include "support/type1_builder.h"

#include <cstddef>

namespace qxtest {
namespace {

constexpr unsigned kEndChar = 14;

std::string operation(unsigned number) {
  return {static_cast<char>(number)};
}

std::string hexadecimal(const std::string& bytes, const std::string& lineEnd) {
  static constexpr char kDigits[] = "0123456789abcdef";
  std::string text;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const auto byte = static_cast<unsigned char>(bytes[i]);
    text += kDigits[byte >> 4];
    text += kDigits[byte & 15];
    if (i % 32 == 31) text += lineEnd;
  }
  return text + lineEnd;
}

}  // namespace

std::string type1Encrypted(const std::string& plain, unsigned key) {
  std::string cipher;
  for (const char c : plain) {
    const unsigned byte = (static_cast<unsigned char>(c) ^ key / 256U) % 256U;
    key = ((byte + key) * 52845U + 22719U) % 65536U;
    cipher.push_back(static_cast<char>(byte));
  }
  return cipher;
}

std::string type1Number(int number) {
  if (number >= -107 && number <= 107) return {static_cast<char>(number + 139)};
  const unsigned amount = static_cast<unsigned>(number < 0 ? -number : number) - 108;
  const unsigned first = (number < 0 ? 251 : 247) + amount / 256;
  return {static_cast<char>(first), static_cast<char>(amount % 256)};
}

std::string type1Box(int width, int side) {
  std::string bytes = type1Number(0) + type1Number(width) + operation(13);  // hsbw
  bytes += type1Number(0) + operation(22);                                  // hmoveto
  bytes += type1Number(side) + operation(6);                                // hlineto
  bytes += type1Number(side) + operation(7);                                // vlineto
  bytes += type1Number(-side) + operation(6) + operation(9);                // closepath
  return bytes + operation(kEndChar);
}

std::string type1Accent(int width, int base, int accent) {
  std::string bytes = type1Number(0) + type1Number(width) + operation(13);
  bytes += type1Number(0) + type1Number(10) + type1Number(20);
  return bytes + type1Number(base) + type1Number(accent) + operation(12) + operation(6);
}

std::string type1Segment(int kind, const std::string& bytes) {
  std::string segment{static_cast<char>(0x80), static_cast<char>(kind)};
  for (unsigned shift = 0; shift < 32; shift += 8)
    segment.push_back(static_cast<char>(bytes.size() >> shift & 0xFF));
  return segment + bytes;
}

Type1Builder& Type1Builder::header(const std::string& line) {
  headers_.push_back(line);
  return *this;
}

Type1Builder& Type1Builder::encoding(const std::vector<std::pair<int, std::string>>& codes) {
  codes_ = codes;
  return *this;
}

Type1Builder& Type1Builder::glyph(const std::string& name, const std::string& charString) {
  glyphs_.emplace_back(name, charString);
  return *this;
}

Type1Builder& Type1Builder::count(const std::string& text) {
  count_ = text;
  return *this;
}

Type1Builder& Type1Builder::lineEnd(const std::string& end) {
  lineEnd_ = end;
  return *this;
}

std::string Type1Builder::clearText() const {
  std::vector<std::string> lines = {"%!PS-AdobeFont-1.0: Made 001.000",
                                    "11 dict begin",
                                    "/FontType 1 def",
                                    "/FontMatrix [0.001 0 0 0.001 0 0] readonly def",
                                    "/PaintType 0 def",
                                    "/FontName /Made def",
                                    "/FontBBox {0 -200 1000 800} readonly def"};
  lines.insert(lines.end(), headers_.begin(), headers_.end());
  if (codes_.empty()) {
    lines.emplace_back("/Encoding StandardEncoding def");
  } else {
    lines.emplace_back("/Encoding 256 array");
    lines.emplace_back("0 1 255 {1 index exch /.notdef put} for");
    for (const auto& [code, name] : codes_)
      lines.push_back("dup " + std::to_string(code) + " /" + name + " put");
    lines.emplace_back("readonly def");
  }
  lines.emplace_back("currentdict end");
  lines.emplace_back("currentfile eexec");
  std::string text;
  for (const std::string& line : lines) text += line + lineEnd_;
  return text;
}

std::string Type1Builder::privatePart() const {
  std::string text(4, '\0');
  text += "dup /Private 8 dict dup begin\n/RD {string currentfile exch readstring pop} def\n";
  text += "/ND {noaccess def} def\n/NP {noaccess put} def\n/BlueValues [] def\n";
  text += "/password 5839 def\n/MinFeature {16 16} def\n/Subrs 0 array\nND\n";
  text += "2 index /CharStrings " + (count_.empty() ? std::to_string(glyphs_.size()) : count_);
  text += " dict dup begin\n";
  for (const auto& [name, charString] : glyphs_) {
    const std::string bytes = type1Encrypted(std::string(4, '\0') + charString, kCharStringKey);
    text += "/" + name + " " + std::to_string(bytes.size()) + " RD " + bytes + " ND\n";
  }
  return text + "end\nend\nreadonly put\nnoaccess put\ndup /FontName get exch definefont pop\n" +
         "mark currentfile closefile\n";
}

std::string Type1Builder::trailer() const {
  std::string text;
  for (int i = 0; i < 8; ++i) text += std::string(64, '0') + lineEnd_;
  return text + "cleartomark" + lineEnd_;
}

std::string Type1Builder::pfa() const {
  return clearText() + hexadecimal(type1Encrypted(privatePart(), kEexecKey), lineEnd_) + trailer();
}

std::string Type1Builder::pfb() const {
  return type1Segment(1, clearText()) + type1Segment(2, type1Encrypted(privatePart(), kEexecKey)) +
         type1Segment(1, trailer()) + std::string("\x80\x03", 2);
}

}  // namespace qxtest
