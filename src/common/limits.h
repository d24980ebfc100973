#pragma once

#include <cstddef>
#include <cstdint>

/// Limits of the common layer. Each lies beyond any real file, and has the neutral answer as its
/// effect: whatever is beyond it is as if it could not be read.
namespace QXCommonNS::limits {

/// Font offsets are 32 bits wide, so no font file is longer.
inline constexpr std::uint64_t kMostFileBytes = UINT64_C(0xFFFFFFFF);

/// Two files of the greatest length: a font that is written, beside what it is written from.
inline constexpr std::uint64_t kMostStreamBytes = UINT64_C(1) << 33;

/// What browsers let the tables of one web font grow to.
inline constexpr std::uint64_t kMostInflatedBytes = UINT64_C(300) << 20;

/// A configuration is written by hand: a few hundred lines, three elements deep.
inline constexpr std::size_t kMostXmlBytes = std::size_t{16} << 20;
inline constexpr std::size_t kMostXmlDepth = 256;
inline constexpr std::size_t kMostXmlAttributeBytes = std::size_t{1} << 20;
/// Each wrong end tag costs a new parser that is told the open elements again; the second limit
/// is on all that is told again, since names may be long.
inline constexpr int kMostXmlWrongEndTags = 10000;
inline constexpr std::size_t kMostXmlRetoldBytes = std::size_t{64} << 20;

/// Folders of fonts nest a few levels; links may make any number of ways through them.
inline constexpr std::size_t kMostFolderDepth = 64;
inline constexpr std::size_t kMostFolders = 100000;

}  // namespace QXCommonNS::limits
