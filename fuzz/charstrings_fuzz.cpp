#include <algorithm>
#include <vector>

#include "font_world.h"
#include "support/cff_builder.h"
#include "support/sample_font.h"
#include "target.h"

namespace qxfuzz {
namespace {

// An input is a byte that tells the length of a charstring; the charstring; a subroutine.

using qxtest::CharStringBuilder;

std::string inputOf(const CharStringBuilder& glyph, const CharStringBuilder& subroutine) {
  return std::string(1, static_cast<char>(glyph.str().size())) + glyph.str() + subroutine.str();
}

std::vector<std::string> seeds() {
  CharStringBuilder hints;
  hints.numbers({10, 20, 30, 40}).op(18).numbers({1, 2}).op(19).raw("\xE0").numbers({5, 5}).op(21);
  hints.numbers({1, 2, 3, 4, 5, 6}).op(8).op(14);
  CharStringBuilder calls;
  calls.number(-107).op(10).numbers({1, 2, 3}).op(0x0C0A).op(0x0C17).numbers({1, 2}).op(21).op(14);
  CharStringBuilder flex;
  flex.numbers({1, 1}).op(21).numbers({1, 2, 3, 4, 5, 6, 7}).op(0x0C22).op(14);
  CharStringBuilder accent;
  accent.numbers({0, 10, 65, 66}).op(14);
  CharStringBuilder back;
  back.numbers({3, 4}).op(5).op(11);
  return {inputOf(hints, back), inputOf(calls, back), inputOf(flex, back), inputOf(accent, back)};
}

void run(std::string_view input) {
  if (input.empty()) return;
  const std::size_t size = static_cast<unsigned char>(input[0]);
  input.remove_prefix(1);
  const std::string glyph(input.substr(0, size));
  const std::string subroutine(input.substr(std::min(size, input.size())));
  for (const bool cid : {false, true}) {
    qxtest::CffBuilder cff;
    cff.cid = cid;
    cff.glyphs = {"\x0E", glyph, glyph, glyph};
    cff.globalSubrs = {subroutine};
    cff.privates.emplace_back();
    cff.privates[0].subrs = {subroutine, glyph};
    cff.charset = qxtest::CffBuilder::charsetFormat0({34, 35, 36});
    if (cid) cff.fdSelect = qxtest::CffBuilder::fdSelect0({0, 0, 0, 0});
    qxtest::SfntBuilder font = qxtest::sampleFont();
    font.version(qxtest::SfntBuilder::kOpenType).without("glyf").without("loca");
    font.table("CFF ", cff.build());
    withFont(font.build(), ".otf", &askEmbedding);
  }
}

}  // namespace

extern const Target kCharstrings;
const Target kCharstrings{
    "charstrings", "Type 2 charstrings, through both decoders and the converter", &seeds, &run};

}  // namespace qxfuzz
