#pragma once

#include <cstdint>
#include <memory>

#include "layout/table/graph_reader.h"
#include "layout/table/sub_table_readers.h"

namespace QXFontService_NS::layout {

/// Reads a subtable of which each format has a class: `Format1`, `Format2` ..., made from the
/// reader and the place. Null for any other format.
template <class Format1, class... More>
SubTablePtr readByFormat(GraphReader& reader, std::uint64_t at, unsigned format) {
  if (format == 1) return std::make_shared<Format1>(reader, at);
  if constexpr (sizeof...(More) > 0) return readByFormat<More...>(reader, at, format - 1);
  return nullptr;
}

/// The same as a `SubTableReader`: `readFormats<GSUB_SingleSubstFormat1, GSUB_SingleSubstFormat2>`.
template <class... Formats>
SubTablePtr readFormats(GraphReader& reader, std::uint64_t at) {
  return readByFormat<Formats...>(reader, at, reader.u16(at));
}

}  // namespace QXFontService_NS::layout
