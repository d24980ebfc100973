#pragma once

#include <cstdint>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "qxcommon/mem_stream.h"
#include "qxfontservice/tt_glyph_map.h"

#include "embed/subset_source.h"
#include "embed/table_tags.h"
#include "support/be_bytes.h"
#include "support/glyf_builder.h"
#include "support/sfnt_builder.h"

namespace QXFontService_NS::embed {

using Gids = std::vector<std::uint16_t>;

inline QXCommonNS::bytes::ByteView viewOf(const std::string& bytes) {
  return {bytes.data(), bytes.size()};
}

inline std::string textOf(QXCommonNS::bytes::ByteView view) {
  std::string text;
  for (const std::byte byte : view.span()) text += static_cast<char>(byte);
  return text;
}

/// All bytes of a stream.
inline std::string bytesIn(QXCommonNS::QXMemStream& stream) {
  std::string bytes(stream.length(), '\0');
  stream.clear();
  stream.seekg(0);
  stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  return bytes;
}

inline void appendText(QXCommonNS::QXMemStream& stream, const std::string& text) {
  stream += text;
}

/// A font as the writers see it.
struct OpenedSfnt {
  /// `directory`: the font whose directory is taken; `bytes`, which the stream gives, may be less.
  OpenedSfnt(const std::string& directory, const std::string& bytes, int indexToLocFormat = 0)
      : stream(bytes) {
    const auto view = viewOf(directory);
    image =
        FS_TableDirectoryImage(view.slice(0, 12), view.slice(12, std::size_t{16} * view.u16(4)));
    source.stream = &stream;
    source.image = &image;
    source.indexToLocFormat = indexToLocFormat;
  }
  explicit OpenedSfnt(const std::string& bytes, int indexToLocFormat = 0)
      : OpenedSfnt(bytes, bytes, indexToLocFormat) {}
  explicit OpenedSfnt(const qxtest::SfntBuilder& font, int indexToLocFormat = 0)
      : OpenedSfnt(font.build(), indexToLocFormat) {}
  OpenedSfnt(const OpenedSfnt&) = delete;
  OpenedSfnt& operator=(const OpenedSfnt&) = delete;

  std::istringstream stream;
  FS_TableDirectoryImage image;
  SubsetSource source;
};

/// What a writer writes; "false" where it fails with nothing written.
template <class Writer>
std::string formOf(Writer writer) {
  QXCommonNS::QXMemStream out(nullptr, 8192, false, true);
  const bool good = writer(out);
  return good ? bytesIn(out) : out.length() == 0 ? "false" : "false after writing";
}

/// A font that was written, read back by its directory.
struct WrittenSfnt {
  explicit WrittenSfnt(const std::string& font) : bytes(font) {
    const auto view = viewOf(bytes);
    for (std::size_t i = 0; i < view.u16(4); ++i) {
      const std::size_t at = 12 + 16 * i;
      tags.push_back(bytes.substr(at, 4));
      checkSums[tags.back()] = view.u32(at + 4);
      offsets[tags.back()] = view.u32(at + 8);
      bodies[tags.back()] = textOf(view.slice(view.u32(at + 8), view.u32(at + 12)));
    }
  }

  std::string bytes;
  std::vector<std::string> tags;
  std::map<std::string, std::uint32_t> checkSums;
  std::map<std::string, std::uint32_t> offsets;
  std::map<std::string, std::string> bodies;
};

/// A glyph of one contour, `size` bytes long, told apart by what fills it.
inline std::string glyphOf(std::size_t size, char fill) {
  return std::string("\0\1", 2) + std::string(size - 2, fill);
}

/// A font whose `glyf` is `glyphs` with nothing between them. The long `loca` has `entries` or,
/// by default, one more than there are glyphs.
inline qxtest::SfntBuilder fontOf(const std::vector<std::string>& glyphs) {
  std::string glyf;
  qxtest::BeBytes loca;
  for (const std::string& glyph : glyphs) {
    loca.u32(static_cast<std::uint32_t>(glyf.size()));
    glyf += glyph;
  }
  loca.u32(static_cast<std::uint32_t>(glyf.size()));
  qxtest::SfntBuilder font;
  font.table("loca", loca.str()).table("glyf", glyf);
  return font;
}

/// The component records of a composite glyph, as bytes.
class Composite {
 public:
  Composite() { bytes_.i16(-1).zeros(8); }
  /// A component with `size` bytes of arguments and transform.
  Composite& part(unsigned flags, unsigned glyph, std::size_t size) {
    bytes_.u16(flags).u16(glyph).zeros(size);
    return *this;
  }
  [[nodiscard]] std::string str() const { return bytes_.str(); }

 private:
  qxtest::BeBytes bytes_;
};

/// A composite of words, with all components but the last told to go on.
inline std::string compositeOf(const std::vector<unsigned>& glyphs) {
  Composite composite;
  for (std::size_t i = 0; i < glyphs.size(); ++i)
    composite.part(i + 1 < glyphs.size() ? 0x21 : 0x01, glyphs[i], 4);
  return composite.str();
}

/// A host's streams, one for each glyph, and the order in which they were asked for.
class GlyphStreams : public FS_TTGlyphMap {
 public:
  QXMemStream* getGlyphStream(unsigned short gid) override {
    asked.push_back(gid);
    if (gid == refused) return nullptr;
    auto& stream = streams[gid];
    if (!stream) stream = std::make_unique<QXMemStream>(nullptr, 8192, false, true);
    return stream.get();
  }

  Gids asked;
  int refused = -1;
  std::map<unsigned short, std::unique_ptr<QXMemStream>> streams;
};

}  // namespace QXFontService_NS::embed
