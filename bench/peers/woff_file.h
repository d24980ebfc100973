#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qxbench {

/// Bare zlib over the tables of an sfnt, one after the other, at the level that fonts are packed
/// with: the least that packing a WOFF takes.
/// @param out as much as all tables take at most; the packed ones follow one another in it.
/// @return the bytes that came out.
std::size_t deflateTables(const std::string& sfnt, std::string& out);

/// The tables of a WOFF file unpacked, in the order of its directory; empty where one is damaged.
std::vector<std::string> tablesOfWoff(std::string_view woff);

/// Bare zlib over the tables of a WOFF file, each inflated into one buffer and copied behind the
/// last into a font made anew: the least that reading it takes.
/// @return the bytes that came out.
std::size_t inflateTables(std::string_view woff, std::string& buffer);

}  // namespace qxbench
