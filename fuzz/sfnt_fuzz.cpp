#include "font_world.h"
#include "support/cff_builder.h"
#include "support/kern_builder.h"
#include "support/mort_builder.h"
#include "support/sample_font.h"
#include "target.h"

namespace qxfuzz {
namespace {

std::vector<std::string> seeds() {
  using namespace qxtest;
  SfntBuilder kerned = sampleFont();
  kerned.table("kern", KernBuilder().format0({{2, 3, -40}}).build());
  kerned.table("mort", MortBuilder().chain({MortBuilder::subtable({{2, 3}})}).build());
  CffBuilder cff;
  cff.glyphs = {"\x0E", "\x0E", "\x8B\x8B\x15\x0E", "\x0E"};
  cff.privates.emplace_back();
  SfntBuilder openType = sampleFont();
  openType.version(SfntBuilder::kOpenType).without("glyf").without("loca");
  openType.table("CFF ", cff.build());
  return {sampleFont().build(), kerned.build(), openType.build(),
          sampleFont().version(SfntBuilder::kApple).build()};
}

void run(std::string_view input) {
  withFont(std::string(input), ".ttf", &askAll);
  withFont(std::string(input), ".otf", &askAll);
}

}  // namespace

extern const Target kSfnt;
const Target kSfnt{"sfnt", "whole sfnt files, with every question that a host has", &seeds, &run};

}  // namespace qxfuzz
