#include "pool/tables/match_font.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace QXFontService_NS {
namespace {

constexpr int kNormalStretch = 5;
constexpr std::size_t kSlots = 9;       // weights 100 to 900
constexpr std::size_t kLightSlots = 5;  // weights 100 to 500

/// The faces of one slant by weight: slot i stands for the weight 100 * (i + 1).
using WeightSlots = std::array<FS_FontRef, kSlots>;

int clampWeight(std::int64_t weight) {
  return static_cast<int>(std::clamp<std::int64_t>(weight, 100, 900));
}

/// To a hundred, upwards: 64 bits, since a request may hold any number.
int roundUp(int weight) {
  return clampWeight((std::int64_t{weight} + 99) / 100 * 100);
}

int roundDown(int weight) {
  return clampWeight(weight / 100 * 100);
}

std::size_t slotOf(int weight) {
  return static_cast<std::size_t>(weight / 100 - 1);
}

int weightOf(std::size_t slot) {
  return static_cast<int>(slot + 1) * 100;
}

const FS_FontRef* find(const FS_FontFamily& family, const FS_FontKey& key) {
  const auto entry = family.find(key);
  return entry == family.end() ? nullptr : &entry->second;
}

/// Stores each face at its weight rounded up, and rounded down where that slot is still empty.
/// Stretch plays no part, so that a family of condensed faces only is filled as well.
void sortIntoSlots(const FS_FontFamily& family, WeightSlots& upright, WeightSlots& italic) {
  for (const auto& [key, ref] : family) {
    WeightSlots& slots = key.italic != 0 ? italic : upright;
    const std::size_t up = slotOf(roundUp(key.weight));
    const std::size_t down = slotOf(roundDown(key.weight));
    slots[up] = ref;
    if (down != up && slots[down].font == nullptr) slots[down] = ref;
  }
}

/// Puts the refs of one slant into the family.
class SlantFiller {
 public:
  SlantFiller(FS_FontFamily& family, const WeightSlots& slots, bool italic)
      : family_(family), slots_(slots), italic_(italic) {}

  void fill() {
    const std::optional<std::size_t> lightest = first(0, kSlots);
    if (!lightest) return;
    fillLight();
    fillBold();
    fillEmptyHalf(*lightest);
  }

 private:
  void put(std::size_t slot, const FS_FontRef& ref) {
    family_.insert({makeFontKey(weightOf(slot), italic_, kNormalStretch), ref});
  }

  [[nodiscard]] bool filled(std::size_t slot) const { return slots_[slot].font != nullptr; }

  [[nodiscard]] std::optional<std::size_t> first(std::size_t begin, std::size_t end) const {
    for (std::size_t slot = begin; slot < end; ++slot) {
      if (filled(slot)) return slot;
    }
    return std::nullopt;
  }

  /// 100 to 500, upwards: a gap takes the nearest lighter face, those below the first take it.
  void fillLight() {
    std::optional<std::size_t> last;
    for (std::size_t slot = 0; slot < kLightSlots; ++slot) {
      if (filled(slot)) {
        for (std::size_t below = slot; !last && below-- > 0;) put(below, slots_[slot]);
        last = slot;
      }
      if (last) put(slot, slots_[*last]);
    }
  }

  /// 900 to 600, downwards: a gap takes the nearest heavier face, those above the first take it.
  void fillBold() {
    std::optional<std::size_t> last;
    for (std::size_t slot = kSlots; slot-- > kLightSlots;) {
      if (filled(slot)) {
        for (std::size_t above = slot + 1; !last && above < kSlots; ++above)
          put(above, slots_[slot]);
        last = slot;
      }
      if (last) put(slot, slots_[*last]);
    }
  }

  /// A half without any face takes the nearest one of the other half.
  void fillEmptyHalf(std::size_t lightest) {
    if (lightest >= kLightSlots) {
      for (std::size_t slot = 0; slot < kLightSlots; ++slot) put(slot, slots_[lightest]);
    }
    if (first(kLightSlots, kSlots)) return;
    std::size_t heaviest = kLightSlots - 1;
    while (!filled(heaviest)) --heaviest;
    for (std::size_t slot = kSlots; slot-- > kLightSlots;) put(slot, slots_[heaviest]);
  }

  FS_FontFamily& family_;
  const WeightSlots& slots_;
  bool italic_;
};

bool anyFilled(const WeightSlots& slots) {
  return std::any_of(slots.begin(), slots.end(),
                     [](const FS_FontRef& ref) { return ref.font != nullptr; });
}

/// Gives the slant `to` the row of the other one.
void copyRow(FS_FontFamily& family, bool to) {
  for (std::size_t slot = 0; slot < kSlots; ++slot) {
    const FS_FontRef* other = find(family, makeFontKey(weightOf(slot), !to, kNormalStretch));
    if (other != nullptr) family.insert({makeFontKey(weightOf(slot), to, kNormalStretch), *other});
  }
}

struct Hit {
  const FS_FontRef* ref = nullptr;
  MatchStep step = MatchStep::none;
};

/// The last key that is tried: the weight rounded up, in normal stretch.
FS_FontKey rounded(const FS_FontKey& wanted) {
  return {roundUp(wanted.weight), wanted.italic, kNormalStretch};
}

Hit matchBeforeFilling(const FS_FontFamily& family, const FS_FontKey& wanted) {
  if (const FS_FontRef* ref = find(family, wanted)) return {ref, MatchStep::exact};
  if (const FS_FontRef* ref = find(family, {wanted.weight, wanted.italic, kNormalStretch})) {
    return {ref, MatchStep::stretch};
  }
  if (wanted.italic != 0) {
    if (const FS_FontRef* ref = find(family, {wanted.weight, 0, wanted.stretch})) {
      return {ref, MatchStep::upright};
    }
    if (const FS_FontRef* ref = find(family, {wanted.weight, 0, kNormalStretch})) {
      return {ref, MatchStep::upright};
    }
  }
  return {find(family, rounded(wanted)), MatchStep::rounded};
}

}  // namespace

void fillFamily(FS_FontFamily& family) {
  WeightSlots upright;
  WeightSlots italic;
  sortIntoSlots(family, upright, italic);
  SlantFiller(family, upright, false).fill();
  SlantFiller(family, italic, true).fill();
  if (!anyFilled(upright)) copyRow(family, false);
  if (!anyFilled(italic)) copyRow(family, true);
}

FS_FontRef matchFont(FS_FontFamily& family, const FS_FontKey& key, MatchStep* step) {
  const FS_FontKey wanted = makeFontKey(key.weight, key.italic != 0, key.stretch);
  Hit hit = matchBeforeFilling(family, wanted);
  if (hit.ref == nullptr) {
    fillFamily(family);
    hit = {find(family, rounded(wanted)), MatchStep::filled};
  }
  if (hit.ref == nullptr) hit.step = MatchStep::none;
  if (step != nullptr) *step = hit.step;
  return hit.ref == nullptr ? FS_FontRef{} : *hit.ref;
}

}  // namespace QXFontService_NS
