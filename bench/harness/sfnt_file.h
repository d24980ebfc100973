#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "common/bytes/byte_view.h"

namespace qxbench {

using QXCommonNS::bytes::ByteView;

/// The bytes of a text as the byte reader takes them.
ByteView viewOf(std::string_view bytes);

/// One table of an sfnt, as the directory says.
struct SfntTable {
  std::string tag;
  std::uint32_t offset = 0;
  std::uint32_t length = 0;
};

/// The directories of the faces in a file: one, or those of a collection.
std::vector<std::vector<SfntTable>> sfntDirectories(ByteView file);

/// A table of the first face; empty when it is not there.
std::string_view tableOf(std::string_view file, const char* tag);

}  // namespace qxbench
