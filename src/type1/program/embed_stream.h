#pragma once

#include <functional>
#include <istream>
#include <optional>

#include "qxcommon/mem_stream.h"
#include "qxfontservice/names.h"

#include "type1/charstrings/rewrite_char_strings.h"

namespace QXFontService_NS::type1 {

/// The bytes of a program's three parts; those of parts that were not written are left alone.
struct EmbedLengths {
  int& clearText;
  int& privatePart;
  int& trailer;
};

/// Writes a program of segments as it is, with the charstrings that are wanted.
///
/// It must have a segment of text, one of binary, one of text and the end marker; what their
/// headers say of their kinds is copied unread.
/// @param wanted none: all glyphs. The private part goes through decryption all the same.
/// @param out receives the program; on false some of it may be there.
bool writePfbStream(std::istream& program, const std::optional<WantedCodes>& wanted,
                    QXMemStream& out, EmbedLengths lengths);

/// The same of a program of text, which becomes one of segments: line ends of the clear text become
/// CR, and the hexadecimal part binary. The trailer is copied as it is.
bool writePfaStream(std::istream& program, const std::optional<WantedCodes>& wanted,
                    QXMemStream& out, EmbedLengths lengths);

}  // namespace QXFontService_NS::type1
