#include "support/hmtx_builder.h"

#include "support/be_bytes.h"

namespace qxtest {

std::string hmtxTable(const std::vector<unsigned>& advances, unsigned trailing) {
  BeBytes out;
  unsigned index = 0;
  for (const unsigned advance : advances) out.u16(advance).u16(index++);
  for (unsigned i = 0; i < trailing; ++i) out.u16(index++);
  return out.str();
}

}  // namespace qxtest
