#include <algorithm>
#include <array>

#include "font/names/name_set.h"
#include "font/names/name_slots.h"

namespace QXFontService_NS::names {
namespace {

/// The name id of each slot.
constexpr std::array<unsigned, kNameSlotCount> kNameIds{1, 2, 3, 4, 6, 16, 17, 20, 0, 8, 13};
constexpr int kFirstLegalSlot = static_cast<int>(NameSlot::copyright);
constexpr std::array<unsigned, 4> kNamingIds{1, 3, 6, 16};
constexpr std::array<unsigned, 2> kFirstPassIds{1, 20};

template <std::size_t Count>
bool holds(const std::array<unsigned, Count>& ids, unsigned nameID) {
  return std::find(ids.begin(), ids.end(), nameID) != ids.end();
}

}  // namespace

std::optional<int> windowsSlotOf(unsigned nameID) {
  const auto found = std::find(kNameIds.begin(), kNameIds.end(), nameID);
  if (found == kNameIds.end()) return std::nullopt;
  return static_cast<int>(found - kNameIds.begin());
}

std::optional<int> macintoshSlotOf(unsigned nameID) {
  const auto slot = windowsSlotOf(nameID);
  return slot && *slot < kFirstLegalSlot ? slot : std::nullopt;
}

bool namesTheFont(unsigned nameID) {
  return holds(kNamingIds, nameID);
}

bool isTakenInFirstPass(unsigned nameID) {
  return holds(kFirstPassIds, nameID);
}

}  // namespace QXFontService_NS::names
