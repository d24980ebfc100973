#include "support/be_bytes.h"

namespace qxtest {

BeBytes& BeBytes::u8(unsigned value) {
  data_.push_back(static_cast<char>(value & 0xFF));
  return *this;
}

BeBytes& BeBytes::u16(unsigned value) {
  return u8(value >> 8).u8(value);
}

BeBytes& BeBytes::u24(unsigned value) {
  return u8(value >> 16).u16(value);
}

BeBytes& BeBytes::u32(std::uint32_t value) {
  return u16(value >> 16).u16(value);
}

BeBytes& BeBytes::tag(std::string_view tag) {
  std::string four(tag);
  four.resize(4, ' ');
  return text(four);
}

BeBytes& BeBytes::text(std::string_view text) {
  data_.append(text);
  return *this;
}

BeBytes& BeBytes::utf16(std::u16string_view text) {
  for (char16_t unit : text) u16(unit);
  return *this;
}

BeBytes& BeBytes::zeros(std::size_t count) {
  data_.append(count, '\0');
  return *this;
}

BeBytes& BeBytes::align(std::size_t unit) {
  return zeros((unit - data_.size() % unit) % unit);
}

BeBytes& BeBytes::label(const std::string& name) {
  labels_[name] = data_.size();
  return *this;
}

BeBytes& BeBytes::patchU16(const std::string& name, unsigned value) {
  const std::size_t position = labels_.at(name);
  data_.at(position) = static_cast<char>(value >> 8 & 0xFF);
  data_.at(position + 1) = static_cast<char>(value & 0xFF);
  return *this;
}

BeBytes& BeBytes::patchU32(const std::string& name, std::uint32_t value) {
  const std::size_t position = labels_.at(name);
  for (std::size_t i = 0; i < 4; ++i) {
    data_.at(position + i) = static_cast<char>(value >> (24 - 8 * i) & 0xFF);
  }
  return *this;
}

}  // namespace qxtest
