#pragma once

#include <string>
#include <string_view>

namespace QXCommonNS::xml {

/// An XML document turned into UTF-8, without byte order mark.
///
/// The encoding is told by the byte order mark, else by how "<?" looks in UTF-16, else by the
/// XML declaration, else it is UTF-8. Of a document in another encoding, what stands before the
/// first damaged character comes; of one in an unknown encoding, nothing. UTF-8 is passed on as
/// it is: the parser tests it.
std::string documentInUtf8(std::string_view document);

}  // namespace QXCommonNS::xml
