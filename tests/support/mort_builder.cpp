#include "support/mort_builder.h"

#include "support/be_bytes.h"

namespace qxtest {

MortBuilder& MortBuilder::chain(const std::vector<std::string>& subtables, unsigned features) {
  std::string all;
  for (const std::string& subtable : subtables) all += subtable;
  const std::size_t length = 12 + 12 * std::size_t{features} + all.size();
  BeBytes out;
  out.u32(1).u32(static_cast<std::uint32_t>(length)).u16(features);
  out.u16(static_cast<unsigned>(subtables.size())).zeros(12 * std::size_t{features}).text(all);
  chains_ += out.str();
  ++count_;
  return *this;
}

std::string MortBuilder::build() const {
  return BeBytes().u32(0x00010000).u32(count_).text(chains_).str();
}

std::string MortBuilder::subtable(const std::vector<MortUnit>& units, unsigned coverage,
                                  unsigned format) {
  BeBytes out;
  const auto count = static_cast<unsigned>(units.size());
  out.u16(20 + 4 * count).u16(coverage).u32(1);
  out.u16(format).u16(4).u16(count).zeros(6);
  for (const MortUnit& unit : units) out.u16(unit.glyph).u16(unit.vertical);
  return out.str();
}

}  // namespace qxtest
