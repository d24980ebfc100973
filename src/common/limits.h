#pragma once

#include <cstddef>
#include <cstdint>

/// The budgets that keep hostile input from using unbounded time or memory.
///
/// All of them count things, none reads a clock, so a font gets the same answer on every machine.
/// Each lies far beyond any real font; a spent budget gives the neutral answer of its layer.
namespace QXCommonNS::limits {

inline constexpr std::uint64_t kKiB = 1024;
inline constexpr std::uint64_t kMiB = 1024 * kKiB;

// Files, streams, configuration and folders.

/// Font offsets are 32 bits wide, so no font file is longer.
inline constexpr std::uint64_t kMostFileBytes = UINT64_C(0xFFFFFFFF);
/// Two files of the greatest length: a font that is written, beside what it is written from.
inline constexpr std::uint64_t kMostStreamBytes = UINT64_C(1) << 33;
/// Bytes of an XML file: a configuration that names every font of a large site is below 1 MiB.
inline constexpr std::size_t kMostXmlBytes = 16 * kMiB;
/// Open elements of an XML file: a configuration nests four deep.
inline constexpr std::size_t kMostXmlDepth = 256;
/// Bytes of one attribute: the longest real ones are lists of code points.
inline constexpr std::size_t kMostXmlAttributeBytes = kMiB;
/// Wrong end tags: each costs a new parser that is told the open elements again; the second limit
/// is on all that is told again, since names may be long.
inline constexpr int kMostXmlWrongEndTags = 10'000;
inline constexpr std::size_t kMostXmlRetoldBytes = 64 * kMiB;
/// Folders inside each other, and folders of one scan: font folders nest a few levels, whole
/// distributions have some hundred. Links may make any number of ways through them.
inline constexpr std::size_t kMostFolderDepth = 64;
inline constexpr std::size_t kMostFolders = 100'000;
/// Interned names: they are never freed, and real ones are a few hundred words of configurations
/// and dictionaries. Beyond it, new texts give the empty name.
inline constexpr std::size_t kMostInternedNames = std::size_t{1} << 20;

// Font files.

/// Members of a collection or a resource fork: a face number is a 16-bit signed number.
inline constexpr int kMostFontMembers = 32'767;
/// Decoded names of one face: 65,535 records may share the same 60 kB of text.
inline constexpr std::uint64_t kMostFaceNameBytes = 32 * kMiB;
/// Decoded records of one file: 20,000 members may share one `name` table. The limit is this and
/// `kFileRecordBytesPerByte` for each byte of the file.
inline constexpr std::uint64_t kFileRecordBytes = 64 * kMiB;
inline constexpr std::uint64_t kFileRecordBytesPerByte = 64;
/// Inflated bytes of a table and of all tables of a WOFF: the limits of the OpenType Sanitizer, so
/// no browser shows what goes beyond them.
inline constexpr std::uint64_t kMostWoffTableBytes = 150 * kMiB;
inline constexpr std::uint64_t kMostWoffFontBytes = 300 * kMiB;
/// Bytes that come out of one inflating: nothing else that is read is as large as a web font.
inline constexpr std::uint64_t kMostInflatedBytes = kMostWoffFontBytes;
/// Variation sequences that are listed of a font: those of all ideographs in use are below 2^17,
/// and overlapping ranges can list 64 for each byte.
inline constexpr std::size_t kMostVariationSequences = std::size_t{1} << 22;
/// Levels and nodes of a composite glyph: real ones have three levels and a dozen parts.
inline constexpr int kMostCompositeDepth = 64;
inline constexpr int kMostCompositeNodes = 1'024;
/// Glyphs that FreeType loads for one composite glyph: a component is loaded as often as there are
/// ways to it, and blank ones take nothing of its 32,767 points, in which 10,922 triangles fit.
inline constexpr std::uint64_t kMostCompositeLoads = 16'384;

// CFF dictionaries. The format grants a DICT 48 operands, and fonts have up to 18 Font DICTs.

/// Operands kept of one DICT operator; of more, the first ones and the last.
inline constexpr std::size_t kMostDictOperands = 513;
/// Bytes of the distinct Private DICTs and local subroutines that the Font DICTs of a font name:
/// damaged ones may name the same bytes thousands of times over.
inline constexpr std::uint64_t kMostPrivateDictBytes = kMiB;
inline constexpr std::uint64_t kMostLocalSubrBytes = 64 * kMiB;

// Charstrings. Legal ones nest ten deep; a whole font of 65,535 glyphs holds some 20 million
// tokens, so only endless or exploding programs come near.

/// Subroutine calls open at a time.
inline constexpr std::size_t kMostCharStringCalls = 65'536;
/// Tokens or bytes walked for one glyph.
inline constexpr std::uint64_t kMostCharStringWork = std::uint64_t{1} << 26;
/// Tokens walked for all glyphs of a Type 1 program, each glyph once.
inline constexpr std::uint64_t kMostProgramWork = std::uint64_t{1} << 25;
/// Tokens kept for one call of a writer.
inline constexpr std::uint64_t kMostCharStringTokens = std::uint64_t{1} << 26;

// Layout tables.

/// Memory of the objects of one layout table: this and `kGraphBytesPerByte` for each byte of the
/// table. Lists kept as the file has them need about one byte a byte.
inline constexpr std::uint64_t kGraphBytes = 16 * kMiB;
inline constexpr std::uint64_t kGraphBytesPerByte = 64;
/// Lookups of one LangSys and of all LangSys of a table: HarfBuzz cuts at 8,000 feature indices.
inline constexpr std::size_t kMostLangSysEntries = std::size_t{1} << 20;
inline constexpr std::size_t kMostLangSysTableEntries = std::size_t{8} << 20;
/// Hops of an extension subtable: an extension of an extension is not well-formed at all.
inline constexpr int kMostExtensionHops = 16;

// Shaping. `length` is the number of glyphs of the run.

/// Runs of nested lookups a call: HarfBuzz grants that many for all lookups of a shape together.
/// Passes that take a whole run at once have at least `kNestedLookupRunsPerGlyph` a glyph.
inline constexpr std::uint64_t kNestedLookupRuns = 65'536;
inline constexpr std::uint64_t kNestedLookupRunsPerGlyph = 4'096;
/// Nested lookups open at a time, or the glyphs of the run if these are more: chains that advance
/// are legal.
inline constexpr std::size_t kNestedLookupDepth = 1'024;
/// Comparisons of glyphs a call: this and `kGlyphComparisonsPerGlyph` for each glyph, about half
/// a second. Long Nastaliq runs stay below 2^24.
inline constexpr std::uint64_t kGlyphComparisons = std::uint64_t{1} << 28;
inline constexpr std::uint64_t kGlyphComparisonsPerGlyph = 4'096;
/// Glyphs of the output: at least this, or `kGrownGlyphsPerGlyph` times the run; the figure of
/// HarfBuzz.
inline constexpr std::size_t kGrownGlyphs = 65'536;
inline constexpr std::size_t kGrownGlyphsPerGlyph = 256;

/// The larger of a floor and a factor times `length`.
[[nodiscard]] constexpr std::uint64_t atLeast(std::uint64_t floor, std::uint64_t factor,
                                              std::uint64_t length) {
  return factor * length > floor ? factor * length : floor;
}

}  // namespace QXCommonNS::limits
