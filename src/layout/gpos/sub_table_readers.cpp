#include "layout/table/sub_table_readers.h"

#include <array>

#include "layout/gpos/context_pos.h"
#include "layout/gpos/cursive_pos.h"
#include "layout/gpos/mark_base_pos.h"
#include "layout/gpos/mark_lig_pos.h"
#include "layout/gpos/mark_mark_pos.h"
#include "layout/gpos/pair_pos.h"
#include "layout/gpos/single_pos.h"
#include "layout/table/read_formats.h"

namespace QXFontService_NS::layout {
namespace {

using T = FS_LayoutTables;

// By lookup type; 9 is the extension.
constexpr std::array<SubTableReader, 9> kReaders{
    nullptr,
    readFormats<T::GPOS_SinglePosFormat1, T::GPOS_SinglePosFormat2>,
    readFormats<T::GPOS_PairPosFormat1, T::GPOS_PairPosFormat2>,
    readFormats<T::GPOS_CursivePosFormat1>,
    readFormats<T::GPOS_MarkBasePosFormat1>,
    readFormats<T::GPOS_MarkLigPosFormat1>,
    readFormats<T::GPOS_MarkMarkPosFormat1>,
    readFormats<T::GPOS_ContextPosFormat1, T::GPOS_ContextPosFormat2, T::GPOS_ContextPosFormat3>,
    readFormats<T::GPOS_ChainContextPosFormat1, T::GPOS_ChainContextPosFormat2,
                T::GPOS_ChainContextPosFormat3>,
};

}  // namespace

SubTableReader gposSubTableReader(unsigned type) {
  return type < kReaders.size() ? kReaders[type] : nullptr;
}

}  // namespace QXFontService_NS::layout
