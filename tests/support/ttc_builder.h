#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "support/sfnt_builder.h"

namespace qxtest {

/// Writes a TrueType collection: header, and the members one behind the other in the order in
/// which they were added. Nothing is checked, so that broken collections can be written too.
class TtcBuilder {
 public:
  TtcBuilder& tag(std::string_view tag);
  TtcBuilder& version(std::uint32_t version);
  TtcBuilder& member(SfntBuilder font);
  /// Names the members in the header by their place in the file, in this order; one may be named
  /// twice. Without it they are named as they stand.
  TtcBuilder& listed(std::vector<std::size_t> places);
  /// Gives an entry of the header an offset of its own.
  TtcBuilder& statedOffset(std::size_t index, std::uint32_t offset);
  /// A count other than the number of entries.
  TtcBuilder& statedCount(std::uint32_t count);

  /// Where the member at `place` begins in the file that `build` gives.
  [[nodiscard]] std::size_t offsetOf(std::size_t place) const;
  [[nodiscard]] std::string build() const;

 private:
  struct StatedOffset {
    std::size_t index;
    std::uint32_t offset;
  };

  [[nodiscard]] std::vector<std::size_t> places() const;
  [[nodiscard]] std::vector<std::uint32_t> offsets() const;

  std::string tag_ = "ttcf";
  std::uint32_t version_ = 0x00010000;
  std::vector<SfntBuilder> members_;
  std::vector<std::size_t> listed_;
  std::vector<StatedOffset> statedOffsets_;
  std::int64_t statedCount_ = -1;
};

}  // namespace qxtest
