#include "layout/table/sub_table_readers.h"

#include <array>

#include "layout/gsub/alternate_subst.h"
#include "layout/gsub/context_subst.h"
#include "layout/gsub/ligature_subst.h"
#include "layout/gsub/multiple_subst.h"
#include "layout/gsub/reverse_chain_subst.h"
#include "layout/gsub/single_subst.h"
#include "layout/table/read_formats.h"

namespace QXFontService_NS::layout {
namespace {

using T = FS_LayoutTables;

// By lookup type; 7 is the extension.
constexpr std::array<SubTableReader, 9> kReaders{
    nullptr,
    readFormats<T::GSUB_SingleSubstFormat1, T::GSUB_SingleSubstFormat2>,
    readFormats<T::GSUB_MultipleSubstFormat1>,
    readFormats<T::GSUB_AlternateSubstFormat1>,
    readFormats<T::GSUB_LigatureSubstFormat1>,
    readFormats<T::GSUB_ContextSubstFormat1, T::GSUB_ContextSubstFormat2,
                T::GSUB_ContextSubstFormat3>,
    readFormats<T::GSUB_ChainContextSubstFormat1, T::GSUB_ChainContextSubstFormat2,
                T::GSUB_ChainContextSubstFormat3>,
    nullptr,
    readFormats<T::GSUB_ReverseChainingContextSingleFormat1>,
};

}  // namespace

SubTableReader gsubSubTableReader(unsigned type) {
  return type < kReaders.size() ? kReaders[type] : nullptr;
}

}  // namespace QXFontService_NS::layout
