#pragma once

#include <cstdint>
#include <sstream>
#include <string>

#include "qxcommon/mem_stream.h"

#include "embed/cff/cff_subset_source.h"
#include "support/byte_text.h"
#include "support/cff_builder.h"

namespace QXFontService_NS::embed {

/// A built font as the writers see it: the table stands three bytes behind the start of a stream.
struct OpenedCff {
  explicit OpenedCff(const std::string& bytes) : stream("???" + bytes) {
    source.table = {&stream, 3, static_cast<std::uint32_t>(bytes.size())};
    source.info = &info;
    source.spaceGlyph = 1;
    loaded = info.readCFF(stream, 3);
  }
  explicit OpenedCff(qxtest::CffBuilder& font) : OpenedCff(font.build()) {}

  std::istringstream stream;
  FS_CFFInfo info;
  CffSubsetSource source;
  bool loaded = false;
};

inline std::string contentOf(QXCommonNS::QXMemStream& stream) {
  std::ostringstream text;
  stream.clear();
  stream.seekg(0);
  if (stream.length() > 0) text << stream.rdbuf();
  return text.str();
}

/// Calls a writer; its output, or "false".
template <class Writer>
std::string written(Writer writer) {
  QXCommonNS::QXMemStream out(nullptr, 8192, false, true);
  return writer(out) ? contentOf(out) : "false";
}

/// A charstring that tells its glyph: `number hmoveto endchar`.
inline std::string glyphOf(int number) {
  return qxtest::CharStringBuilder().number(number).op(22).op(14).str();
}

/// A name-keyed font of `count` glyphs with the SIDs 1, 2, 3 ... and local subroutines.
inline qxtest::CffBuilder nameKeyedFont(int count) {
  qxtest::CffBuilder font;
  font.strings = {"own"};
  std::vector<int> sids;
  for (int i = 0; i < count; ++i) font.glyphs.push_back(glyphOf(i));
  for (int i = 1; i < count; ++i) sids.push_back(i);
  font.charset = qxtest::CffBuilder::charsetFormat0(sids);
  font.privates.resize(1);
  font.privates[0].dict.entry(20, 500);
  font.privates[0].subrs = {"\x0B"};
  return font;
}

/// A CID-keyed font of `count` glyphs, CID = glyph id + 100, with two Font DICTs.
inline qxtest::CffBuilder cidKeyedFont(int count) {
  qxtest::CffBuilder font;
  font.cid = true;
  font.strings = {"Adobe", "Identity"};
  for (int i = 0; i < count; ++i) font.glyphs.push_back(glyphOf(i));
  font.charset = qxtest::CffBuilder::charsetRanges(2, {{101, count - 2}});
  font.fdSelect = qxtest::CffBuilder::fdSelect3({{0, 0}, {count / 2, 1}}, count);
  font.privates.resize(2);
  for (int i = 0; i < 2; ++i) {
    font.privates[static_cast<std::size_t>(i)].dict.entry(20, 500 + i);
    font.privates[static_cast<std::size_t>(i)].subrs = {std::string(1, static_cast<char>(11 + i))};
  }
  return font;
}

/// What the Top DICT of the next font names as its Private: three bytes, which are an encoding too.
inline const std::string kTopPrivate = qxtest::bytesOf({0, 1, 20});

/// A CID-keyed font whose Top DICT has a Private as well, before or behind the FDArray.
inline qxtest::CffBuilder cidKeyedWithTopPrivate(bool before) {
  const auto withPrivateAt = [before](std::size_t offset) {
    qxtest::CffBuilder font = cidKeyedFont(8);
    font.order = {"charset", "FDSelect", "CharStrings", "Encoding", "FDArray"};
    (before ? font.encoding : font.trailer) = kTopPrivate;
    font.top.number(3).number(static_cast<int>(offset), qxtest::DictForm::fourBytes).op(18);
    return font;
  };
  qxtest::CffBuilder sized = withPrivateAt(0);
  static_cast<void>(sized.build());
  return withPrivateAt(sized.at(before ? "Encoding" : "End"));
}

}  // namespace QXFontService_NS::embed
