#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qxtest {

/// Writes an sfnt file from tables: offset table, directory and checksums as OpenType has them.
///
/// Directory and tables stand in the order in which the tables were added. Nothing is checked, so
/// that broken fonts can be written too:
/// `SfntBuilder().table("head", HeadBuilder().build()).rawEntry("glyf", 0, 0).build()`.
class SfntBuilder {
 public:
  static constexpr std::uint32_t kTrueType = 0x00010000;
  static constexpr std::uint32_t kOpenType = 0x4F54544F;  // "OTTO"
  static constexpr std::uint32_t kApple = 0x74727565;     // "true"

  explicit SfntBuilder(std::uint32_t version = kTrueType) : version_(version) {}

  SfntBuilder& version(std::uint32_t version);
  /// Adds a table, or replaces the one of this tag in its place.
  SfntBuilder& table(std::string_view tag, std::string bytes);
  SfntBuilder& without(std::string_view tag);
  /// Adds a directory entry as it stands, behind those of the tables; it brings no data.
  SfntBuilder& rawEntry(std::string_view tag, std::uint32_t offset, std::uint32_t length);
  /// Gives the entry of `tag` a length other than that of its data.
  SfntBuilder& statedLength(std::string_view tag, std::uint32_t length);
  /// A table count other than the number of entries.
  SfntBuilder& statedCount(unsigned count);

  /// Where the data of `tag` stands in the file that `build` gives.
  [[nodiscard]] std::size_t offsetOf(std::string_view tag) const;
  /// The bytes of the table, as added.
  [[nodiscard]] const std::string& bytesOf(std::string_view tag) const;

  /// The font; its offsets count from `base` bytes before it (members of a collection).
  [[nodiscard]] std::string build(std::uint32_t base = 0) const;

 private:
  struct Table {
    std::string tag;
    std::string bytes;
    std::uint32_t statedLength;
  };
  struct Entry {
    std::string tag;
    std::uint32_t offset;
    std::uint32_t length;
  };

  [[nodiscard]] std::size_t headerSize() const;
  [[nodiscard]] const Table* find(std::string_view tag) const;
  [[nodiscard]] std::string header(std::uint32_t base) const;

  std::uint32_t version_;
  std::vector<Table> tables_;
  std::vector<Entry> rawEntries_;
  int statedCount_ = -1;
};

/// The OpenType table checksum: the sum of the big-endian words, the last filled with zeros.
std::uint32_t tableChecksum(std::string_view bytes);

}  // namespace qxtest
