#include "layout/table/feature_list.h"

#include <algorithm>

#include "layout/table/graph_reader.h"

namespace QXFontService_NS::layout {
namespace {

constexpr unsigned kVert = 0x76657274;  // 'vert'

using Indices = std::vector<unsigned short>;

std::shared_ptr<const Indices> readIndices(GraphReader& reader, std::uint64_t at) {
  return reader.shared<Indices>(GraphReader::kFeature, at, [&] {
    return std::make_shared<const Indices>(reader.words(at + 4, reader.u16(at + 2)));
  });
}

const TTI_Feature* firstVert(const std::vector<TTI_Feature>& features) {
  const auto found = std::find_if(features.begin(), features.end(),
                                  [](const TTI_Feature& feature) { return feature.tag == kVert; });
  return found == features.end() ? nullptr : &*found;
}

}  // namespace

bool readFeatureList(TTI_FeatureList& list, GraphReader& reader, unsigned offset) {
  const std::size_t count = reader.countThatFits(offset + 2U, reader.u16(offset), 6);
  list.features.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    const std::uint64_t record = offset + 2U + 6 * i;
    const auto& indices =
        list.lookupIndices.emplace_back(readIndices(reader, offset + reader.u16(record + 4)));
    list.features.push_back({reader.u32(record), *indices});
  }
  list.vert = firstVert(list.features);
  return true;
}

}  // namespace QXFontService_NS::layout
