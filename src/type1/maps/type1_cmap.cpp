#include "type1/maps/type1_cmap.h"

#include <algorithm>

#include "type1/maps/standard_strings.h"

namespace QXFontService_NS {
namespace {

constexpr int kCodesOfPage = 254;  // 254 and 255 are never given out
constexpr int kCodesLeftFree = 33;
constexpr int kPages = 256;
constexpr int kAllCodes = kPages * kCodesOfPage;

}  // namespace

const Type1CMapArray* Type1CMap::getType1CMapArray(unsigned char page) const {
  QXMutex guard(&lock_);
  const auto found = pairsByPage_.find(page);
  return found != pairsByPage_.end() ? &found->second : nullptr;
}

bool Type1CMap::getType1CMapPair(unsigned char page, int index, unsigned char& code,
                                 std::string& name) const {
  QXMutex guard(&lock_);
  const Type1CMapArray* pairs = getType1CMapArray(page);
  if (pairs == nullptr || index < 0 || static_cast<std::size_t>(index) >= pairs->size())
    return false;
  const auto& [pairCode, pairName] = (*pairs)[static_cast<std::size_t>(index)];
  code = pairCode;
  name = pairName;
  return true;
}

bool Type1CMap::getType1GlyphName(unsigned char page, unsigned char code, std::string& name) const {
  QXMutex guard(&lock_);
  const auto names = namesByPage_.find(page);
  if (names != namesByPage_.end()) {
    const auto found = names->second.find(code);
    if (found != names->second.end()) {
      name = found->second;
      return true;
    }
  }
  if (page != 0) return false;
  name = type1::kStandardStrings[type1::kStandardEncodingSids[code]];
  return true;
}

void Type1CMap::registerPageEntry(unsigned char page, unsigned char code, const std::string& name) {
  namesByPage_[page].emplace(code, name);
  pairsByPage_[page].emplace_back(code, name);
}

void Type1CMap::advanceCode(int last) {
  nextCode_ = std::min(std::max(nextCode_, last), kAllCodes) + 1;
}

unsigned short Type1CMap::makeCode(const std::string& name) {
  if (nextCode_ % kCodesOfPage == 0) nextCode_ += kCodesLeftFree;
  const int page = nextCode_ / kCodesOfPage;
  const int code = nextCode_ % kCodesOfPage;
  if (page >= kPages) return 0;
  registerPageEntry(static_cast<unsigned char>(page), static_cast<unsigned char>(code), name);
  return static_cast<unsigned short>(page << 8 | code);
}

unsigned short Type1CMap::assignNewCode(int character, const std::string& name) {
  const unsigned short code = makeCode(name);
  return code != 0 ? remember(character, code) : code;
}

unsigned short Type1CMap::assignNewGlyphCode(unsigned short glyph, const std::string& name) {
  const unsigned short code = makeCode(name);
  if (code == 0) return code;
  glyphsByCode_.emplace(code, glyph);
  return codesByGlyph_[glyph] = code;
}

unsigned short Type1CMap::remember(int character, unsigned short code) {
  return codesByCharacter_[character] = code;
}

}  // namespace QXFontService_NS
