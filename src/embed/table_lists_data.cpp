#include "embed/table_lists.h"
#include "embed/table_tags.h"

namespace QXFontService_NS::embed {

constexpr std::array<std::uint32_t, 10> kEmbedTables{
    tableTag("OS/2"), tableTag("cvt "), tableTag("fpgm"), tableTag("head"), tableTag("hhea"),
    tableTag("hmtx"), tableTag("maxp"), tableTag("post"), tableTag("prep"), 0,
};

constexpr std::array<std::uint32_t, 11> kEmbedTablesWithCmap{
    tableTag("OS/2"),
    tableTag("cmap"),
    tableTag("cvt "),
    tableTag("fpgm"),
    tableTag("head"),
    tableTag("hhea"),
    tableTag("hmtx"),
    tableTag("maxp"),
    tableTag("post"),
    tableTag("prep"),
    0,
};

constexpr std::array<std::uint32_t, 8> kPostScriptTables{
    tableTag("cvt "), tableTag("fpgm"), tableTag("head"), tableTag("hhea"),
    tableTag("hmtx"), tableTag("maxp"), tableTag("prep"), 0,
};

}  // namespace QXFontService_NS::embed
