#include "harness/layout_host.h"

#include <unicode/uchar.h>

#include <algorithm>
#include <utility>

namespace qxbench {
namespace {

using namespace QXFontService_NS;

constexpr int kPlacedAbsolutely = 0x8000;

enum Form : std::size_t { kInit, kMedi, kFina, kIsol };

template <class TagOf>
std::vector<int> lookupsOf(const Tags& wanted, TagOf tagOf) {
  std::vector<int> lookups;
  for (int i = 0;; ++i) {
    const unsigned int tag = tagOf(i);
    if (tag == 0) return lookups;
    if (std::find(wanted.begin(), wanted.end(), tag) != wanted.end()) lookups.push_back(i);
  }
}

bool joinsOn(int type) {
  return type == U_JT_DUAL_JOINING || type == U_JT_LEFT_JOINING || type == U_JT_JOIN_CAUSING;
}

bool joinsBack(int type) {
  return type == U_JT_DUAL_JOINING || type == U_JT_RIGHT_JOINING || type == U_JT_JOIN_CAUSING;
}

/// The form of a letter among its neighbours; the sample text has no marks between letters.
Form formAt(const std::vector<int>& joining, std::size_t at) {
  const int type = joining[at];
  const bool before = at > 0 && joinsOn(joining[at - 1]) && joinsBack(type);
  const bool behind = at + 1 < joining.size() && joinsBack(joining[at + 1]) && joinsOn(type);
  if (before) return behind ? kMedi : kFina;
  return behind ? kInit : kIsol;
}

}  // namespace

LayoutHost::LayoutHost(const FS_FontInfo& font, LayoutWish wish)
    : font_(font), wish_(std::move(wish)), info_(font.getGSUBGPOSInfo(wish_.script, 0)) {
  const auto gsub = [&](int i) { return FS_FontInfo::getGSUBFeatureTag(info_.get(), i); };
  const auto gpos = [&](int i) { return FS_FontInfo::getGPOSFeatureTag(info_.get(), i); };
  substitutions_ = lookupsOf(wish_.substitute, gsub);
  positionings_ = lookupsOf(wish_.position, gpos);
}

void LayoutHost::readGlyphs(const icu::UnicodeString& text) {
  ids_.resize(static_cast<std::size_t>(text.length()));
  int count = 0;
  font_.getGlyphIDs(text, ids_.data(), count, false, nullptr);
  glyphs_.clear();
  for (int i = 0; i < count; ++i) {
    const unsigned short id = ids_[static_cast<std::size_t>(i)];
    glyphs_.push_back(id, font_.getGlyphClassDef(id));
  }
}

void LayoutHost::chooseForms(const icu::UnicodeString& text) {
  joining_.clear();
  for (int i = 0; i < text.length(); ++i)
    joining_.push_back(u_getIntPropertyValue(text[i], UCHAR_JOINING_TYPE));
  GlyphIDArray output;
  GlyphIDArray matched;
  for (int i = 0; i < text.length(); ++i) {
    const Form form = formAt(joining_, static_cast<std::size_t>(i));
    if (form >= wish_.forms.size() || wish_.forms[form] == 0) continue;
    int end = i;
    output.clear();
    if (FS_FontInfo::processGSUB(info_.get(), wish_.forms[form], glyphs_, end, output, matched,
                                 1) == 1)
      glyphs_[i] = output[0];
  }
}

void LayoutHost::substitute() {
  for (const int lookup : substitutions_) {
    if (!FS_FontInfo::processGSUB3(info_.get(), lookup, glyphs_, result_, 1)) continue;
    // The glyphs alone: words that come in say which places a pass leaves alone.
    static_cast<GlyphIDArray&>(glyphs_) = result_;
  }
}

void LayoutHost::place() {
  positions_.clear();
  for (const GlyphIDClassPair& pair : glyphs_) {
    const int width = static_cast<int>(font_.getGlyphWidth(pair.glyphID, 0, false));
    positions_.emplace_back(1, width);
    positions_.back().setGlyph2(pair, width);
    positions_.back().setFlag(kPlacedAbsolutely);
  }
  for (const int lookup : positionings_)
    FS_FontInfo::processGPOS3(info_.get(), lookup, positions_, wish_.rightToLeft);
}

const std::vector<GlyphIDPosition>& LayoutHost::shape(const icu::UnicodeString& text) {
  readGlyphs(text);
  if (!wish_.forms.empty()) chooseForms(text);
  substitute();
  place();
  return positions_;
}

}  // namespace qxbench
