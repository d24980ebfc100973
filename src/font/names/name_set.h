#pragma once

#include <unicode/unistr.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace QXFontService_NS {

using icu::UnicodeString;

/// The slots of a name set, each tied to a name id of OpenType `name`.
enum class NameSlot : int {
  family = 0,               // id 1
  subFamily = 1,            // id 2
  uniqueId = 2,             // id 3, kept and never asked
  fullName = 3,             // id 4
  postScriptName = 4,       // id 6
  preferredFamily = 5,      // id 16
  preferredSubFamily = 6,   // id 17
  cidFindfontName = 7,      // id 20
  copyright = 8,            // id 0
  manufacturer = 9,         // id 8
  licenseDescription = 10,  // id 13
};
inline constexpr int kNameSlotCount = 11;

/// The names of one font in one language, packed in one string: a pool holds thousands of them.
class FS_NameSet {
 public:
  /// The name of a slot; empty for a slot that has none and for a number that is no slot.
  [[nodiscard]] UnicodeString get(int slot) const;
  [[nodiscard]] UnicodeString get(NameSlot slot) const { return get(static_cast<int>(slot)); }
  [[nodiscard]] std::u16string_view view(int slot) const;
  [[nodiscard]] bool has(int slot) const { return !view(slot).empty(); }

  /// Puts `name` in a slot in place of what it holds. A number that is no slot changes nothing.
  void set(int slot, std::u16string_view name);
  void set(NameSlot slot, std::u16string_view name) { set(static_cast<int>(slot), name); }

  [[nodiscard]] bool isEmpty() const { return text_.empty(); }
  /// Makes room for names of `length` units together.
  void reserve(std::size_t length) { text_.reserve(length); }
  /// Gives back what growing reserved.
  void shrink() { text_.shrink_to_fit(); }

 private:
  [[nodiscard]] std::size_t begin(int slot) const;

  std::u16string text_;                               // the names one behind the other
  std::array<std::uint32_t, kNameSlotCount> ends_{};  // where each slot's name ends in text_
};

}  // namespace QXFontService_NS
