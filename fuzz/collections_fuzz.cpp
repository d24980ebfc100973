#include "font_world.h"
#include "support/dfont_builder.h"
#include "support/sample_font.h"
#include "support/ttc_builder.h"
#include "support/woff_builder.h"
#include "target.h"

namespace qxfuzz {
namespace {

std::vector<std::string> seeds() {
  using namespace qxtest;
  const std::string font = sampleFont().build();
  TtcBuilder pair;
  pair.member(sampleFont()).member(sampleFont()).listed({1, 0, 1});
  DfontBuilder suitcase;
  suitcase.resource("FOND", "family").resource("sfnt", font).resource("sfnt", font);
  WoffBuilder web;
  return {pair.build(), suitcase.build(), WoffBuilder::of(font).build(),
          web.deflated("head", std::string(54, '\0')).raw("name", "x").build()};
}

/// By the extension, since each kind of file has a reader of its own.
void run(std::string_view input) {
  for (const char* extension : {".ttc", ".dfont", ".woff"})
    withFont(std::string(input), extension, &askAll);
}

}  // namespace

extern const Target kCollections;
const Target kCollections{"collections", "collections, resource forks and web fonts", &seeds, &run};

}  // namespace qxfuzz
