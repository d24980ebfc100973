#pragma once

#include "support/cff_builder.h"
#include "support/sfnt_builder.h"

namespace qxtest {

/// The outlines of the sample font as a name-keyed CFF: .notdef, space, A and B, of which A is a
/// square of 500 units and B one of 300.
CffBuilder sampleCff();

/// The same CID-keyed, Adobe-Japan1, with CID 0, 1, 34 and 35; B has a Font DICT of its own.
CffBuilder sampleCidCff();

/// The sample font with outlines in `CFF `, "QX Sample Regular".
SfntBuilder sampleOpenType(CffBuilder cff);

}  // namespace qxtest
