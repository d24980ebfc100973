#pragma once

#include <string>

namespace QXCommonNS::xml {

/// Cuts the document type out of the prologue of `document`, with its internal subset: no entity
/// is ever declared, and nothing outside the file is named. One without an end takes the rest of
/// the document with it.
void cutDoctype(std::string& document);

}  // namespace QXCommonNS::xml
