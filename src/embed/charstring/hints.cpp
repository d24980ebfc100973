#include "embed/charstring/hints.h"

#include <algorithm>
#include <cstddef>

#include "embed/keyword/keyword.h"

namespace QXFontService_NS::charstring {

using embed::Keyword;
using QXCommonNS::QXValue;

namespace {

constexpr std::size_t kMostValues = 22;

void appendGroups(const std::vector<std::vector<FS_CounterEntry>>& groups,
                  FS_CharStringTokens& values) {
  values.emplace_back(static_cast<int>(groups.size()));
  for (const std::vector<FS_CounterEntry>& group : groups) {
    for (const FS_CounterEntry& entry : group) {
      values.push_back(entry.delta);
      values.push_back(entry.width);
    }
  }
}

}  // namespace

std::vector<FS_Stem> stemsOf(std::span<const QXValue> operands, int kind, bool includeWidths) {
  std::vector<FS_Stem> stems;
  QXValue position(0);
  for (std::size_t i = 0; i + 1 < operands.size(); i += 2) {
    position += operands[i];
    stems.push_back({kind, position, operands[i + 1]});
    if (includeWidths) position += operands[i + 1];
  }
  return stems;
}

void addToGroup(std::vector<FS_CounterEntry>& group, const FS_Stem& stem) {
  const QXValue delta = group.empty() ? stem.position : stem.position - group.back().edge;
  group.push_back({delta, stem.width, stem.position + stem.width});
}

void markEnd(std::vector<FS_CounterEntry>& group) {
  if (group.empty()) return;
  FS_CounterEntry& last = group.back();
  if (last.width < QXValue(0)) return;
  last.delta += last.width;
  last.width = QXValue(0) - last.width;
}

FS_CharStringTokens counterTokens(const std::vector<std::vector<FS_CounterEntry>>& horizontal,
                                  const std::vector<std::vector<FS_CounterEntry>>& vertical) {
  FS_CharStringTokens values;
  appendGroups(horizontal, values);
  appendGroups(vertical, values);
  FS_CharStringTokens out;
  for (std::size_t end = values.size(); end > 0;) {
    const std::size_t size = std::min(end, kMostValues);
    const auto from = values.begin() + static_cast<std::ptrdiff_t>(end - size);
    out.insert(out.end(), from, from + static_cast<std::ptrdiff_t>(size));
    out.emplace_back(static_cast<int>(size));
    out.emplace_back(size == kMostValues ? 12 : 13);
    out.push_back(embed::keywordValue(Keyword::kCallothersubr));
    end -= size;
  }
  return out;
}

}  // namespace QXFontService_NS::charstring
