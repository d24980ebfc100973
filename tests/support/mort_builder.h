#pragma once

#include <string>
#include <vector>

namespace qxtest {

/// A glyph and what stands for it in vertical text.
struct MortUnit {
  unsigned glyph;
  unsigned vertical;
};

/// Writes `mort` tables (Apple TrueType), chain by chain.
class MortBuilder {
 public:
  static constexpr unsigned kVerticalNonContextual = 0x8004;

  /// Adds a chain with `features` feature entries and the given subtables.
  MortBuilder& chain(const std::vector<std::string>& subtables, unsigned features = 1);

  [[nodiscard]] std::string build() const;

  /// A non-contextual subtable with a lookup table of `format`, its units as in format 6.
  static std::string subtable(const std::vector<MortUnit>& units,
                              unsigned coverage = kVerticalNonContextual, unsigned format = 6);

 private:
  unsigned count_ = 0;
  std::string chains_;
};

}  // namespace qxtest
