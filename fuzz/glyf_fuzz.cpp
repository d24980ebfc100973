#include <algorithm>

#include "font_world.h"
#include "support/glyf_builder.h"
#include "table_input.h"
#include "target.h"

namespace qxfuzz {
namespace {

// An input is a byte that tells the length of `loca` in words, `loca`, and `glyf`.

std::string inputOf(const qxtest::GlyfBuilder& glyphs) {
  const std::string loca = glyphs.loca();
  return std::string(1, static_cast<char>(loca.size() / 2)) + loca + glyphs.glyf();
}

std::vector<std::string> seeds() {
  qxtest::GlyfBuilder nested;
  nested.square(500).empty().composite({{3, 1, 2}, {0, 3, 4}}).composite({{0, 5, 6}});
  qxtest::GlyfBuilder ring;
  ring.square(500).composite({{2, 0, 0}}).composite({{1, 0, 0}}).composite({{3, 0, 0}});
  return {inputOf(nested), inputOf(ring)};
}

void run(std::string_view input) {
  if (input.empty()) return;
  const std::size_t size = std::size_t{static_cast<unsigned char>(input[0])} * 2;
  input.remove_prefix(1);
  qxtest::SfntBuilder font = qxtest::sampleFont();
  font.table("loca", std::string(input.substr(0, size)));
  font.table("glyf", std::string(input.substr(std::min(size, input.size()))));
  withFont(font.build(), ".ttf", &askEmbedding);
}

}  // namespace

extern const Target kGlyf;
const Target kGlyf{"glyf", "TrueType outlines, through all forms of the subset writer", &seeds,
                   &run};

}  // namespace qxfuzz
