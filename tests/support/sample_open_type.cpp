#include "support/sample_open_type.h"

#include "support/sample_font.h"

namespace qxtest {
namespace {

constexpr unsigned kHlineto = 6;
constexpr unsigned kHmoveto = 22;
constexpr unsigned kEndchar = 14;

std::string emptyGlyph() {
  return CharStringBuilder().number(0).op(kHmoveto).op(kEndchar).str();
}

std::string square(int side) {
  CharStringBuilder glyph;
  glyph.number(50).op(kHmoveto).numbers({side, side, -side}).op(kHlineto).op(kEndchar);
  return glyph.str();
}

}  // namespace

CffBuilder sampleCff() {
  CffBuilder cff;
  cff.names = {"QXSample-Regular"};
  cff.strings = {"own"};
  cff.glyphs = {emptyGlyph(), emptyGlyph(), square(500), square(300)};
  cff.charset = CffBuilder::charsetFormat0({1, 34, 35});
  cff.privates.resize(1);
  cff.privates[0].dict.entry(20, 600);
  return cff;
}

CffBuilder sampleCidCff() {
  CffBuilder cff = sampleCff();
  cff.cid = true;
  cff.strings = {"Adobe", "Japan1"};
  cff.fdSelect = CffBuilder::fdSelect3({{0, 0}, {3, 1}}, 4);
  cff.privates.resize(2);
  cff.privates[1].dict.entry(20, 700);
  return cff;
}

SfntBuilder sampleOpenType(CffBuilder cff) {
  SfntBuilder font = sampleFont().without("glyf").without("loca");
  return font.version(SfntBuilder::kOpenType).table("CFF ", cff.build());
}

}  // namespace qxtest
