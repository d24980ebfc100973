#pragma once

#include <optional>

namespace QXFontService_NS::names {

/// The last encoding of platform 3 that is read; 10, for instance, is passed over.
inline constexpr unsigned kLastWindowsEncoding = 5;

/// The slot of a Windows record by its name id, or nothing for an id that is not kept.
std::optional<int> windowsSlotOf(unsigned nameID);

/// The same for a Macintosh record, which gives no legal texts.
std::optional<int> macintoshSlotOf(unsigned nameID);

/// Whether a record of this id makes the font one that has a name.
bool namesTheFont(unsigned nameID);

/// Whether a Macintosh record counts although Windows records may follow.
bool isTakenInFirstPass(unsigned nameID);

}  // namespace QXFontService_NS::names
