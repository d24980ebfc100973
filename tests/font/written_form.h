#pragma once

#include <string>

#include "qxcommon/mem_stream.h"

namespace qxtest {

inline std::string bytesIn(QXCommonNS::QXMemStream& stream) {
  std::string bytes(stream.length(), '\0');
  stream.clear();
  stream.seekg(0);
  stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  return bytes;
}

/// What an operation writes, or "false".
template <class Operation>
std::string formOf(Operation operation) {
  QXCommonNS::QXMemStream out(nullptr, 8192, false, true);
  return operation(out) ? bytesIn(out) : "false";
}

/// The tags of an sfnt, one after the other.
inline std::string tagsOf(const std::string& font) {
  std::string tags;
  const auto count = static_cast<std::size_t>(static_cast<unsigned char>(font.at(5)));
  for (std::size_t i = 0; i < count; ++i) tags += font.substr(12 + 16 * i, 4) + " ";
  return tags;
}

}  // namespace qxtest
