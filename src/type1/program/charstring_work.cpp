#include "type1/program/charstring_work.h"

#include <algorithm>
#include <cstddef>
#include <string>

#include "common/bytes/byte_reader.h"
#include "type1/maps/glyph_names.h"

namespace QXFontService_NS::type1 {
namespace {

using QXCommonNS::bytes::ByteReader;
using QXCommonNS::bytes::ByteView;

/// Where FreeType itself gives a charstring up: what one costs that cannot be followed.
constexpr std::uint64_t kMostOfFreeType = 20'000'000;
constexpr int kMostCalls = 32;  // FreeType goes 16 deep
constexpr std::size_t kMostOperands = 512;
constexpr std::size_t kLongestName = 63;  // which FreeType tells; of more the first bytes

enum Operator { kCallSubr = 10, kReturn = 11, kEscape = 12, kEndChar = 14 };
enum Escape { kSeac = 6, kDiv = 12, kCallOther = 16, kPop = 17 };
constexpr int kChangeHints = 3;

/// A number that begins with `first`, 32 or above (Adobe Type 1 Font Format, 6.2).
int numberOf(int first, ByteReader& reader) {
  if (first == 255) return reader.i32();
  if (first >= 251) return -(first - 251) * 256 - reader.u8() - 108;
  if (first >= 247) return (first - 247) * 256 + reader.u8() + 108;
  return first - 139;
}

}  // namespace

bool CharStringWork::take(std::uint64_t work) {
  left_ = work < left_ ? left_ - work : 0;
  return left_ > 0;
}

bool CharStringWork::spend(std::string_view glyph) {
  if (left_ == 0) return false;
  isPart_ = false;
  walkGlyph(glyph);
  return left_ > 0;
}

/// All charstrings of a name: FreeType counts each as a glyph, and a name does not tell which.
void CharStringWork::walkGlyph(std::string_view glyph) {
  auto found = program_.glyphs.lower_bound(glyph);
  const bool isCut = glyph.size() == kLongestName;
  const auto fits = [&](const std::string& name) {
    return isCut ? name.compare(0, kLongestName, glyph) == 0 : name == glyph;
  };
  if ((found == program_.glyphs.end() || !fits(found->first)) && !isPart_) take(kMostOfFreeType);
  for (; left_ > 0 && found != program_.glyphs.end() && fits(found->first); ++found) {
    stack_.clear();
    results_.clear();
    walk(found->second, 0);
  }
}

/// @return false at the end of the glyph, true at that of a subroutine.
bool CharStringWork::walk(std::string_view code, int depth) {
  if (depth > kMostCalls) return false;
  ByteReader reader(ByteView(code.data(), code.size()));
  while (reader.left() > 0 && !reader.failed() && take(1)) {
    const int first = reader.u8();
    if (first == kReturn) return true;
    if (first >= 32) {
      if (stack_.size() >= kMostOperands) return false;
      stack_.push_back(numberOf(first, reader));
    } else if (first == kEscape) {
      if (!escape(reader.u8())) return false;
    } else if (first == kCallSubr) {
      if (!callSubr(depth)) return false;
    } else if (first == kEndChar) {
      return false;
    } else {
      stack_.clear();
    }
  }
  return left_ > 0;
}

CharStringWork::Operand CharStringWork::pop() {
  if (stack_.empty()) return std::nullopt;
  const Operand top = stack_.back();
  stack_.pop_back();
  return top;
}

bool CharStringWork::callSubr(int depth) {
  const Operand number = pop();
  const auto found = number ? program_.subrs.find(*number) : program_.subrs.end();
  if (found != program_.subrs.end()) return walk(found->second, depth + 1);
  // No such subroutine ends a glyph, but one that is merely not found here does not.
  if (!number || !program_.isSound) take(kMostOfFreeType);
  return false;
}

bool CharStringWork::escape(int number) {
  switch (number) {
    case kSeac:
      return walkParts();
    case kDiv:
      pop();
      pop();
      stack_.emplace_back();
      return true;
    case kCallOther:
      callOther();
      return true;
    case kPop:
      stack_.push_back(results_.empty() ? Operand() : results_.back());
      if (!results_.empty()) results_.pop_back();
      return true;
    default:
      stack_.clear();
      return true;
  }
}

/// Only a change of hints hands its operand on as it is: the subroutine to call.
void CharStringWork::callOther() {
  const Operand number = pop();
  const Operand count = pop();
  results_.clear();
  if (!number || !count || *count < 0 || static_cast<std::size_t>(*count) > stack_.size()) {
    stack_.clear();
    return;
  }
  if (*number == kChangeHints && *count == 1) results_.push_back(stack_.back());
  stack_.resize(stack_.size() - static_cast<std::size_t>(*count));
}

/// The two glyphs of an accent, which have no parts themselves.
bool CharStringWork::walkParts() {
  const Operand accent = pop();
  const Operand base = pop();
  if (isPart_) return false;
  isPart_ = true;
  for (const Operand& part : {base, accent}) {
    if (!part) take(kMostOfFreeType);
    if (part && *part >= 0 && *part <= 255)
      walkGlyph(standardEncodingName(static_cast<unsigned char>(*part)));
  }
  return false;
}

}  // namespace QXFontService_NS::type1
