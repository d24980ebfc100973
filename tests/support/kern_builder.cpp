#include "support/kern_builder.h"

#include "support/be_bytes.h"

namespace qxtest {

KernBuilder& KernBuilder::format0(const std::vector<KernPair>& pairs, unsigned coverage) {
  BeBytes body;
  body.u16(static_cast<unsigned>(pairs.size())).zeros(6);
  for (const KernPair& pair : pairs) body.u16(pair.left).u16(pair.right).i16(pair.value);
  return raw(coverage, body.str());
}

KernBuilder& KernBuilder::raw(unsigned coverage, const std::string& body) {
  BeBytes out;
  out.u16(0).u16(static_cast<unsigned>(6 + body.size()) & 0xFFFF).u16(coverage).text(body);
  subtables_ += out.str();
  ++count_;
  return *this;
}

std::string KernBuilder::build() const {
  return BeBytes().u16(0).u16(count_).text(subtables_).str();
}

}  // namespace qxtest
