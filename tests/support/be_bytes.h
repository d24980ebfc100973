#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace qxtest {

/// Big-endian bytes written in code, for fonts that tests make. Fields may be labelled when they
/// are written and patched by their label later:
/// `b.label("length").u16(0); ... b.patchU16("length", b.size());`
class BeBytes {
 public:
  BeBytes& u8(unsigned value);
  BeBytes& u16(unsigned value);
  BeBytes& i16(int value) { return u16(static_cast<unsigned>(value) & 0xFFFF); }
  BeBytes& u24(unsigned value);
  BeBytes& u32(std::uint32_t value);
  /// Four characters; a shorter tag is filled up with spaces.
  BeBytes& tag(std::string_view tag);
  BeBytes& text(std::string_view text);
  BeBytes& utf16(std::u16string_view text);
  BeBytes& bytes(const std::string& bytes) { return text(bytes); }
  BeBytes& append(const BeBytes& other) { return text(other.data_); }
  BeBytes& zeros(std::size_t count);
  BeBytes& align(std::size_t unit);

  /// Names the present end, so that what is written next can be patched.
  BeBytes& label(const std::string& name);
  [[nodiscard]] std::size_t at(const std::string& name) const { return labels_.at(name); }
  BeBytes& patchU16(const std::string& name, unsigned value);
  BeBytes& patchU32(const std::string& name, std::uint32_t value);

  [[nodiscard]] std::size_t size() const { return data_.size(); }
  [[nodiscard]] const std::string& str() const { return data_; }

 private:
  std::string data_;
  std::map<std::string, std::size_t> labels_;
};

}  // namespace qxtest
