#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "support/be_bytes.h"
#include "support/sfnt_builder.h"

namespace qxtest {

/// The bytes in zlib format (RFC 1950).
std::string zlibBytes(std::string_view bytes);

/// Writes a WOFF 1.0 file from tables, in the order in which they were added. Nothing is checked,
/// so that broken files can be written too.
class WoffBuilder {
 public:
  WoffBuilder() = default;
  /// All tables of an sfnt file, with its flavor and its directory's checksums; deflated where
  /// that is shorter. `totalSfntSize` is the sum that the format asks for.
  static WoffBuilder of(const std::string& sfnt);
  static WoffBuilder of(const SfntBuilder& font) { return of(font.build()); }

  WoffBuilder& flavor(std::uint32_t flavor);
  WoffBuilder& totalSfntSize(std::uint32_t size);
  /// A count other than the number of entries.
  WoffBuilder& statedCount(unsigned count);
  /// Adds a table that is stored as it is.
  WoffBuilder& raw(std::string_view tag, std::string bytes, std::uint32_t checksum = 0);
  /// Adds a table of other bytes than its content, of the length that it says to have.
  WoffBuilder& packed(std::string_view tag, std::string bytes, std::uint32_t origLength,
                      std::uint32_t checksum = 0);
  /// Adds a table that is deflated, though it may become longer.
  WoffBuilder& deflated(std::string_view tag, std::string_view bytes, std::uint32_t checksum = 0);
  /// Bytes between the tables, up to a multiple of `unit`; 4 by default.
  WoffBuilder& aligned(std::size_t unit);
  /// The data of the tables stand in the opposite order of the directory.
  WoffBuilder& reversed();

  /// The file, with the labels "length" and "totalSfntSize" in the header and for the entry of
  /// each table its number: "0", "1" ...; its fields follow each other, four bytes each.
  [[nodiscard]] BeBytes bytes() const;
  [[nodiscard]] std::string build() const { return bytes().str(); }

 private:
  struct Table {
    std::string tag;
    std::string bytes;
    std::uint32_t origLength;
    std::uint32_t checksum;
  };

  [[nodiscard]] std::size_t headerSize() const;
  [[nodiscard]] std::vector<std::size_t> order() const;
  [[nodiscard]] std::vector<std::size_t> offsets() const;
  [[nodiscard]] std::uint32_t sfntSize() const;

  std::uint32_t flavor_ = SfntBuilder::kTrueType;
  std::vector<Table> tables_;
  std::int64_t totalSfntSize_ = -1;
  int statedCount_ = -1;
  std::size_t unit_ = 4;
  bool reversed_ = false;
};

}  // namespace qxtest
