#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "qxcommon/mem_stream.h"
#include "qxfontservice/cid_system_info.h"

#include "embed/cff/cff_subset_source.h"

namespace QXFontService_NS::cid {

/// A tag for the name of a subset: "QX", four or more upper-case hexadecimal digits of `rand()`,
/// "-". The generator is not seeded, so a process gives the same tags in each run: kept.
[[nodiscard]] std::string makeSubsetTag();

/// Writes a PostScript CIDFontType 0 resource of glyph 0 and `gids`, as Type 1 charstrings (Adobe
/// Technical Note 5014). CID k, from 1, is the k-th of `gids` that is neither 0 nor 0xFFFF, in the
/// caller's order; a repeated one gets a second CID.
///
/// @param postScriptName the font's name; its blanks become "_".
/// @param fontName the name of the written font: a subset tag and the PostScript name.
/// @param info the character collection that was written.
/// @return false, with all three results unchanged and no tag used up, for what cannot be read and
///   for a glyph without a Type 1 form.
/// @throws std::out_of_range as `charstring::makeType1CharStrings`.
[[nodiscard]] bool makeCidFontType0(const embed::CffSubsetSource& source,
                                    const std::vector<std::uint16_t>& gids,
                                    const icu::UnicodeString& postScriptName,
                                    QXCommonNS::QXMemStream& out, icu::UnicodeString& fontName,
                                    FS_CIDSystemInfo& info);

}  // namespace QXFontService_NS::cid
