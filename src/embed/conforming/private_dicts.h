#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "common/bytes/byte_writer.h"
#include "embed/cff/cff_table.h"

namespace QXFontService_NS::embed::conforming {

/// Carries Private DICTs with their local subroutines from one CFF table to another: each distinct
/// one once, its subroutines right behind it.
class PrivateDicts {
 public:
  explicit PrivateDicts(const cff::CffTable& table) : table_(table) {}

  /// Reads the Private DICT of `size` bytes at a table offset. False for what cannot be read, and
  /// where the Private DICTs together are larger than those of any font.
  [[nodiscard]] bool add(std::int32_t offset, std::int32_t size);

  /// Writes all that were added, and notes where each stands.
  void write(QXCommonNS::bytes::ByteWriter& out);

  /// Size and place in the output of what `add` read; the place only after `write`.
  struct Place {
    std::uint32_t size = 0;
    std::uint32_t offset = 0;
  };
  [[nodiscard]] Place placeOf(std::int32_t offset, std::int32_t size) const;

 private:
  struct Entry {
    std::string dict;
    std::string subrs;  // the INDEX whole; empty where there is none
    std::uint32_t written = 0;
  };

  bool read(std::int32_t offset, std::int32_t size, Entry& entry);
  bool readSubrs(std::int64_t offset, std::string& out);

  const cff::CffTable& table_;
  std::map<std::pair<std::int32_t, std::int32_t>, Entry> entries_;  // by source offset and size
  std::uint64_t privateBytes_ = 0;
  std::uint64_t subrBytes_ = 0;
};

}  // namespace QXFontService_NS::embed::conforming
