#include "font_world.h"
#include "support/cff_builder.h"
#include "support/sample_font.h"
#include "target.h"

namespace qxfuzz {
namespace {

using qxtest::CffBuilder;

constexpr const char* kEndChar = "\x0E";

CffBuilder nameKeyed() {
  CffBuilder cff;
  cff.strings = {"one", "two", "three"};
  cff.glyphs = {kEndChar, "\x8B\x8B\x15\x0E", "\x20\x0A\x0E", "\x8B\x8B\xCC\xEB\x0E"};
  cff.globalSubrs = {"\x0B"};
  cff.privates.emplace_back();
  cff.privates[0].subrs = {"\x8B\x8B\x05\x0B"};
  cff.charset = CffBuilder::charsetFormat0({391, 392, 34});
  cff.encoding = std::string("\x00\x02\x41\x42", 4);
  return cff;
}

CffBuilder cidKeyed() {
  CffBuilder cff = nameKeyed();
  cff.cid = true;
  cff.encoding.clear();
  cff.charset = CffBuilder::charsetRanges(2, {{5, 2}});
  cff.privates.emplace_back();
  cff.fdSelect = CffBuilder::fdSelect3({{0, 0}, {2, 1}}, 4);
  return cff;
}

std::vector<std::string> seeds() {
  CffBuilder predefined = nameKeyed();
  predefined.charset.clear();
  predefined.predefinedCharset = 0;
  predefined.privateOffsetForm = qxtest::DictForm::twoBytes;
  return {nameKeyed().build(), cidKeyed().build(), predefined.build()};
}

void run(std::string_view input) {
  qxtest::SfntBuilder font = qxtest::sampleFont();
  font.version(qxtest::SfntBuilder::kOpenType).without("glyf").without("loca");
  font.table("CFF ", std::string(input));
  withFont(font.build(), ".otf", [](const QXFontService_NS::FS_FontInfo& opened) {
    askMetrics(opened);
    askCharacters(opened);
    askEmbedding(opened);
  });
}

}  // namespace

extern const Target kCff;
const Target kCff{"cff", "CFF tables, through the reader and all writers", &seeds, &run};

}  // namespace qxfuzz
