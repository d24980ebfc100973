#include "common/bytes/byte_view.h"
#include "font_world.h"
#include "support/sample_font.h"
#include "support/sample_open_type.h"
#include "support/woff_builder.h"
#include "target.h"

namespace qxfuzz {
namespace {

using QXCommonNS::bytes::ByteView;
using qxtest::SfntBuilder;
using qxtest::WoffBuilder;

/// Packed without deflating, so that a changed byte is one of the font inside.
std::string stored(const SfntBuilder& font) {
  WoffBuilder web;
  for (const char* tag : {"OS/2", "cmap", "glyf", "head", "hhea", "hmtx", "loca", "maxp", "name"})
    web.raw(tag, font.bytesOf(tag));
  return web.build();
}

std::vector<std::string> seeds() {
  const SfntBuilder font = qxtest::sampleFont();
  WoffBuilder odd;
  odd.deflated("head", std::string(54, '\0')).raw("name", "x").raw("zero", "");
  odd.packed("tiny", qxtest::zlibBytes("0123456789"), 4).aligned(1).reversed();
  return {WoffBuilder::of(font).build(), stored(font), odd.build(),
          WoffBuilder::of(qxtest::sampleOpenType(qxtest::sampleCff())).build(),
          WoffBuilder::of(qxtest::sampleOpenType(qxtest::sampleCidCff())).build()};
}

/// What the directory promises. A font of hundreds of megabytes is within the limits, but takes the
/// writers seconds when each byte is watched: the limits have tests of their own.
bool isOfSomeSize(ByteView file) {
  constexpr std::uint64_t kMost = std::uint64_t{4} << 20;
  std::uint64_t sum = 0;
  for (std::uint64_t i = 0; i < file.u16(12); ++i) sum += file.u32(44 + 20 * i + 12);
  return sum <= kMost;
}

void run(std::string_view input) {
  if (!isOfSomeSize(ByteView(input.data(), input.size()))) return;
  withFont(std::string(input), ".woff", &askAll);
  withDocumentFont(std::string(input), ".woff", &askAll);
}

}  // namespace

extern const Target kWoff;
const Target kWoff{"woff", "web fonts, by themselves and as a document's own", &seeds, &run};

}  // namespace qxfuzz
