#include "common/bytes/byte_writer.h"

namespace QXCommonNS::bytes {

ByteWriter& ByteWriter::u8(std::uint8_t value) {
  data_.push_back(std::byte{value});
  return *this;
}

ByteWriter& ByteWriter::u16(std::uint16_t value) {
  return u8(static_cast<std::uint8_t>(value >> 8)).u8(static_cast<std::uint8_t>(value));
}

ByteWriter& ByteWriter::u24(std::uint32_t value) {
  return u8(static_cast<std::uint8_t>(value >> 16)).u16(static_cast<std::uint16_t>(value));
}

ByteWriter& ByteWriter::u32(std::uint32_t value) {
  return u16(static_cast<std::uint16_t>(value >> 16)).u16(static_cast<std::uint16_t>(value));
}

ByteWriter& ByteWriter::bytes(ByteView view) {
  data_.insert(data_.end(), view.span().begin(), view.span().end());
  return *this;
}

ByteWriter& ByteWriter::text(std::string_view text) {
  return bytes({text.data(), text.size()});
}

ByteWriter& ByteWriter::zeros(std::size_t count) {
  data_.resize(data_.size() + count);
  return *this;
}

ByteWriter& ByteWriter::align(std::size_t unit) {
  return zeros((unit - data_.size() % unit) % unit);
}

ByteWriter::Patch<std::uint16_t> ByteWriter::patchU16() {
  const Patch<std::uint16_t> patch{data_.size()};
  u16(0);
  return patch;
}

ByteWriter::Patch<std::uint32_t> ByteWriter::patchU32() {
  const Patch<std::uint32_t> patch{data_.size()};
  u32(0);
  return patch;
}

void ByteWriter::set(Patch<std::uint16_t> patch, std::uint16_t value) {
  data_[patch.position] = std::byte{static_cast<std::uint8_t>(value >> 8)};
  data_[patch.position + 1] = std::byte{static_cast<std::uint8_t>(value)};
}

void ByteWriter::set(Patch<std::uint32_t> patch, std::uint32_t value) {
  set(Patch<std::uint16_t>{patch.position}, static_cast<std::uint16_t>(value >> 16));
  set(Patch<std::uint16_t>{patch.position + 2}, static_cast<std::uint16_t>(value));
}

}  // namespace QXCommonNS::bytes
