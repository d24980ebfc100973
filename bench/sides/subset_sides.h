#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "qxcommon/mem_stream.h"
#include "qxfontservice/font_info.h"

#include "font/contract/base_font.h"
#include "harness/bench.h"
#include "harness/opened_font.h"
#include "peers/harfbuzz_subset.h"

namespace qxbench {

using Glyphs = std::vector<unsigned short>;

/// A subset with the font's glyph ids: how each side makes it.
struct SubsetForm {
  using QXMemStream = QXCommonNS::QXMemStream;

  bool (*fromMemory)(QXFontService_NS::FS_BaseFont& font, const Glyphs& glyphs, QXMemStream& out,
                     std::istream& source);
  bool (*fromFile)(const QXFontService_NS::FS_FontInfo& font, const Glyphs& glyphs,
                   QXMemStream& out);
  void (*hollowCopy)(const std::string& font, const Glyphs& glyphs, std::string& out);
  void (*readKept)(const std::string& path, const std::string& font, const Glyphs& glyphs);
};

/// What the ratios have to be.
struct SubsetMusts {
  double harfBuzz, harfBuzzAim;
  double hollowCopy;
};

/// One font, and both sides over it.
class SubsetSides {
 public:
  SubsetSides(const FontSets& fonts, const std::string& file, const SubsetForm& form);

  bool oursFromMemory(const Glyphs& glyphs, QXCommonNS::QXMemStream& out);
  void oursFromMemory(const Glyphs& glyphs);
  void oursFromFile(const Glyphs& glyphs);
  HarfBuzz<hb_blob_t> theirsFromMemory(const Glyphs& glyphs);
  void theirsFromFile(const Glyphs& glyphs);
  /// The floor: a hollow copy, and the same with the bytes read from the file before.
  void hollowFromMemory(const Glyphs& glyphs);
  void hollowFromFile(const Glyphs& glyphs);

  /// Why one of the subsets lacks an outline that it has to keep; empty when both are whole.
  std::string difference(const Glyphs& glyphs);

  OpenedFont font;

 private:
  const SubsetForm& form_;
  std::istringstream memory_;
  HarfBuzz<hb_blob_t> blob_;
  std::string hollow_;
};

/// Adds the rows of one font and one number of glyphs, beside hb-subset and beside the floor.
void compareFromMemory(Bench& bench, SubsetSides& sides, const std::string& name,
                       const Glyphs& glyphs, const SubsetMusts& musts);
void compareFromFile(Bench& bench, SubsetSides& sides, const std::string& name,
                     const Glyphs& glyphs, const SubsetMusts& musts);

/// How the cost grows from 100 ids to 1,000 and 10,000, from memory.
void addSubsetGrowth(Bench& bench, SubsetSides& sides, const std::string& outlines, double limit);

}  // namespace qxbench
