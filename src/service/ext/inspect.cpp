#include "qxfontservice/ext/inspect.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <tuple>

#include "font/contract/base_font.h"
#include "font/contract/font_file_options.h"
#include "font/sfnt/true_type_info.h"
#include "font/sfnt_font.h"
#include "service/boundary.h"

namespace QXFontService_NS::ext {
namespace {

constexpr int kCodesOfUnicode = 0x110000;
constexpr int kCodesOfFirstPlane = 0x10000;
// Each pair of them is asked for. Glyph names reach a quarter of it; a glyph list may go on.
constexpr std::size_t kMostKerned = 4096;

/// The record of the face, or null where the kind of font has none; that of a document's font is
/// the record of the font inside.
const FS_TrueTypeInfo* recordOf(const FS_FontInfo& font) {
  if (font.getFont() == nullptr) return nullptr;
  FS_BaseFont* inner = font.getFont()->getExtraBaseFont();
  return inner != nullptr ? SfntFont::recordOf(*inner, font.getEntry()) : nullptr;
}

/// What `query` tells of the record, or an empty answer without one.
template <class Result, class Query>
Result ofRecord(const FS_FontInfo& font, Query query) {
  return service::atBoundary(Result(), [&]() -> Result {
    const FS_TrueTypeInfo* record = recordOf(font);
    return record != nullptr ? query(*record) : Result();
  });
}

std::vector<CharacterGlyph> listedCharacters(const FS_TrueTypeInfo& record) {
  std::vector<CharacterGlyph> map;
  record.loaded().maps.forEach([&](int code, std::uint16_t glyph) {
    map.push_back({code, glyph});
  });
  return map;
}

std::vector<CharacterGlyph> askedCharacters(const FS_FontInfo& font) {
  std::vector<CharacterGlyph> map;
  for (int code = 0; code < kCodesOfUnicode; ++code) {
    const unsigned short glyph = font.getGlyphID(code, false);
    if (glyph != FS_NO_GLYPH) map.push_back({code, glyph});
  }
  return map;
}

std::vector<KernPair> pairsOf(const metrics::KernPairs& kern, bool vertical) {
  std::vector<KernPair> pairs;
  kern.forEach([&](std::uint16_t left, std::uint16_t right, std::int16_t) {
    pairs.push_back({left, right, kern.valueOf(left, right, vertical)});
  });
  const auto key = [](const KernPair& pair) { return std::tie(pair.left, pair.right); };
  std::sort(pairs.begin(), pairs.end(),
            [&](const KernPair& a, const KernPair& b) { return key(a) < key(b); });
  const auto isSame = [&](const KernPair& a, const KernPair& b) { return key(a) == key(b); };
  pairs.erase(std::unique(pairs.begin(), pairs.end(), isSame), pairs.end());
  return pairs;
}

std::vector<VariationGlyph> sequencesOf(const cmap::CharacterMaps& maps) {
  std::vector<VariationGlyph> sequences;
  maps.forEachVariation([&](int code, int selector, std::uint16_t glyph) {
    sequences.push_back({code, selector, glyph});
  });
  const auto key = [](const VariationGlyph& one) { return std::tie(one.selector, one.code); };
  std::sort(sequences.begin(), sequences.end(),
            [&](const VariationGlyph& a, const VariationGlyph& b) { return key(a) < key(b); });
  const auto isSame = [&](const VariationGlyph& a, const VariationGlyph& b) {
    return key(a) == key(b);
  };
  sequences.erase(std::unique(sequences.begin(), sequences.end(), isSame), sequences.end());
  return sequences;
}

bool isType1(const FS_FontInfo& font) {
  return font.isType1Font() && recordOf(font) == nullptr;
}

/// Glyph names are those of characters of the first plane; a glyph list may name others.
int endOfMeasured(const FS_FontInfo& font) {
  const FS_FontFileOptions* options = font.getFont()->getExtraBaseFont()->fontEntry();
  const bool hasList = options != nullptr && !options->glyphList.isEmpty();
  return hasList ? kCodesOfUnicode : kCodesOfFirstPlane;
}

/// What `getPairKerningValue` of a Type 1 font takes.
std::vector<unsigned short> kernedCodes(const FS_FontInfo& font) {
  std::vector<unsigned short> codes;
  if (font.getFontFileType2() == FS_FILETYPE_TYPE1_PFM) {
    for (int code = 0; code <= 0xFF; ++code) codes.push_back(static_cast<unsigned short>(code));
    return codes;
  }
  for (const CharacterWidth& measured : characterWidths(font))
    if (measured.code <= 0xFFFF && codes.size() < kMostKerned)
      codes.push_back(static_cast<unsigned short>(measured.code));
  return codes;
}

short wholeUnits(float value) {
  constexpr float kLargest = std::numeric_limits<short>::max();
  return static_cast<short>(std::clamp(value, -kLargest, kLargest));
}

std::vector<KernPair> askedPairs(const FS_FontInfo& font) {
  std::vector<KernPair> pairs;
  const std::vector<unsigned short> codes = kernedCodes(font);
  for (const unsigned short left : codes) {
    for (const unsigned short right : codes) {
      const float value = font.getPairKerningValue(left, right, 0, false);
      if (value != 0) pairs.push_back({left, right, wholeUnits(value)});
    }
  }
  return pairs;
}

}  // namespace

std::vector<int> nameLanguages(const FS_FontInfo& font) {
  return ofRecord<std::vector<int>>(font, [](const FS_TrueTypeInfo& record) {
    std::vector<int> languages;
    for (const auto& [language, names] : record.records().names.sets())
      languages.push_back(language);
    return languages;
  });
}

unsigned int glyphCount(const FS_FontInfo& font) {
  return ofRecord<unsigned int>(font,
                                [](const FS_TrueTypeInfo& record) { return record.numGlyphs; });
}

bool hasCffOutlines(const FS_FontInfo& font) {
  return ofRecord<bool>(font, [](const FS_TrueTypeInfo& record) { return record.hasCFF(); });
}

std::vector<CharacterGlyph> characterMap(const FS_FontInfo& font) {
  return service::atBoundary(std::vector<CharacterGlyph>(), [&] {
    const FS_TrueTypeInfo* record = recordOf(font);
    if (record != nullptr) return listedCharacters(*record);
    return font.isCreatedFont() ? askedCharacters(font) : std::vector<CharacterGlyph>();
  });
}

std::vector<unsigned short> advances(const FS_FontInfo& font) {
  return ofRecord<std::vector<unsigned short>>(font, [](const FS_TrueTypeInfo& record) {
    std::vector<unsigned short> widths;
    for (unsigned int glyph = 0; glyph < record.numGlyphs; ++glyph)
      widths.push_back(record.loaded().hMetrics.advanceOf(static_cast<std::uint16_t>(glyph)));
    return widths;
  });
}

std::vector<CharacterWidth> characterWidths(const FS_FontInfo& font) {
  return service::atBoundary(std::vector<CharacterWidth>(), [&] {
    std::vector<CharacterWidth> widths;
    if (!isType1(font)) return widths;
    const int em = -font.getUnitsPerEm();
    const int end = endOfMeasured(font);
    for (int code = 0; code < end; ++code) {
      int missing = -1;
      const float width = font.getTextWidth(code, em, false, &missing);
      if (missing < 0) widths.push_back({code, std::round(width)});
    }
    return widths;
  });
}

std::vector<KernPair> kernPairs(const FS_FontInfo& font, bool vertical) {
  if (isType1(font)) {
    return service::atBoundary(std::vector<KernPair>(), [&] {
      return font.hasPairKerningInfo(vertical) && !vertical ? askedPairs(font)
                                                            : std::vector<KernPair>();
    });
  }
  return ofRecord<std::vector<KernPair>>(font, [&](const FS_TrueTypeInfo& record) {
    const metrics::KernPairs& kern = record.loaded().kern;
    return kern.hasPairs(vertical) ? pairsOf(kern, vertical) : std::vector<KernPair>();
  });
}

std::vector<VariationGlyph> variationSequences(const FS_FontInfo& font) {
  return ofRecord<std::vector<VariationGlyph>>(
      font, [](const FS_TrueTypeInfo& record) { return sequencesOf(record.loaded().maps); });
}

std::vector<ClassedGlyph> glyphClasses(const FS_FontInfo& font) {
  return ofRecord<std::vector<ClassedGlyph>>(font, [](const FS_TrueTypeInfo& record) {
    std::vector<ClassedGlyph> classes;
    for (unsigned int id = 0; id < record.numGlyphs; ++id) {
      const auto glyph = static_cast<unsigned short>(id);
      const GlyphClassDef found = record.glyphClass(glyph);
      if (found >= 0) classes.push_back({glyph, found});
    }
    return classes;
  });
}

}  // namespace QXFontService_NS::ext
