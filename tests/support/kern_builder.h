#pragma once

#include <string>
#include <vector>

namespace qxtest {

/// A pair of glyphs and its kerning, in font units.
struct KernPair {
  unsigned left;
  unsigned right;
  int value;
};

/// Writes `kern` tables of the OpenType kind (version 0).
class KernBuilder {
 public:
  /// Adds a subtable of format 0, its pairs in the order given. Its length field wraps as in real
  /// fonts where the pairs are more than 16 bits can tell.
  KernBuilder& format0(const std::vector<KernPair>& pairs, unsigned coverage = 1);
  /// Adds a subtable header with `coverage`, followed by `body`.
  KernBuilder& raw(unsigned coverage, const std::string& body);

  [[nodiscard]] std::string build() const;

 private:
  unsigned count_ = 0;
  std::string subtables_;
};

}  // namespace qxtest
