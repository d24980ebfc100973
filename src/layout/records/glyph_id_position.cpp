#include "qxfontservice/glyph_id_position.h"

#include <climits>

namespace QXFontService_NS {
namespace {

constexpr int kOutsideGPOS = 0x0002;
constexpr int kAbsolute = 0x8000;

bool isPresent(int argument) {
  return argument != INT_MIN;
}

}  // namespace

GlyphIDPosition::GlyphIDPosition(int len, int width)
    : correspondLength_(cut(len)), width_(cut(width)), moveX2_(cut(width)) {}

void GlyphIDPosition::setZeroMove() {
  width_ = 0;
  moveX1_ = 0;
  moveX2_ = 0;
  moveY_ = 0;
}

void GlyphIDPosition::setGlyph(unsigned short glyph, GlyphClassDef cls, int width, bool) {
  correspondLength_ = 1;
  setGlyph2({glyph, cls}, width);
}

void GlyphIDPosition::setGlyph2(const GlyphIDClassPair& pair, int width) {
  glyph_ = pair;
  setZeroMove();
  flag_ = 0;
  skipInfo_ = 0;
  compInfo_ = 0;
  if (hasGlyph()) width_ = moveX2_ = cut(width);
}

void GlyphIDPosition::clearGlyph() {
  *this = GlyphIDPosition();
}

void GlyphIDPosition::ignoreGlyph() {
  clearGlyph();
  glyph_.ignore();
}

void GlyphIDPosition::clearOutsideGPOSInfo() {
  if ((flag_ & kOutsideGPOS) == 0) return;
  clrFlag(kOutsideGPOS);
  moveX1_ = 0;
  moveY_ = 0;
  moveX2_ = width_;
}

void GlyphIDPosition::addPosition(int xPlacement, int yPlacement, int xAdvance, int yAdvance) {
  clearOutsideGPOSInfo();
  if ((flag_ & kAbsolute) != 0) {
    placeAbsolutely(xPlacement, yPlacement, xAdvance);
  } else {
    placeAdditively(xPlacement, yPlacement, xAdvance, yAdvance);
  }
}

void GlyphIDPosition::addPosition2(int xPlacement, int yPlacement, int xAdvance, int yAdvance) {
  clearOutsideGPOSInfo();
  placeAdditively(xPlacement, yPlacement, xAdvance, yAdvance);
}

// The advance in y has no part here.
void GlyphIDPosition::placeAbsolutely(int xPlacement, int yPlacement, int xAdvance) {
  const short newX1 = isPresent(xPlacement) ? cut(xPlacement) : moveX1_;
  const int advanceKept = moveX2_ + moveX1_ - newX1;
  moveX1_ = newX1;
  moveX2_ = isPresent(xAdvance) ? cut(width_ - newX1, xAdvance) : cut(advanceKept);
  if (isPresent(yPlacement)) moveY_ = cut(yPlacement);
}

void GlyphIDPosition::placeAdditively(int xPlacement, int yPlacement, int xAdvance, int yAdvance) {
  if (isPresent(xPlacement)) {
    moveX1_ = cut(moveX1_, xPlacement);
    moveX2_ = cut(moveX2_ - cut(xPlacement));
  }
  if (isPresent(xAdvance)) moveX2_ = cut(moveX2_, xAdvance);
  if (isPresent(yPlacement)) moveY_ = cut(moveY_, yPlacement);
  if (isPresent(yAdvance)) moveY_ = cut(moveY_ - cut(yAdvance));
}

}  // namespace QXFontService_NS
