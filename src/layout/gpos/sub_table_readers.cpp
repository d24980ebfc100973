#include "layout/table/sub_table_readers.h"

namespace QXFontService_NS::layout {

SubTableReader gposSubTableReader(unsigned) {
  return nullptr;
}

}  // namespace QXFontService_NS::layout
