#pragma once

#include <array>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace qxfont {

/// What a Type 1 font has beside what all have (ISO 32000-1, 9.6.2 and 9.9).
struct PdfType1 {
  std::array<int, 3> lengths{};                ///< of the parts of its program
  std::map<unsigned char, std::string> names;  ///< of glyphs by code: its encoding
};

/// A font as it goes into a PDF document (ISO 32000-1, 9.7 and 9.8): a CIDFontType2 whose CIDs are
/// the glyph ids of an embedded TrueType subset, or a CIDFontType0 whose CIDs are those of a bare
/// CFF, in one that is keyed by names its glyph ids; or a Type 1 font of at most 256 codes. Lengths
/// are thousandths of an em.
struct PdfFont {
  std::string baseFont;  ///< with the tag of the subset: "ABCDEF+Name"
  std::string fontFile;  ///< the sfnt, the bare CFF, or the Type 1 program without segments
  bool isBareCff = false;
  std::optional<PdfType1> type1;
  int flags = 0;
  std::array<double, 4> bounds{};
  double italicAngle = 0;
  double ascent = 0;
  double descent = 0;
  double capHeight = 0;
  double stemV = 0;
  std::vector<std::pair<unsigned short, double>> widths;  ///< by rising CID or code
  std::string toUnicode;                                  ///< a CMap
};

/// A document, ready to be written.
struct PdfDocument {
  double width = 0;  ///< of the pages, in points
  double height = 0;
  std::vector<std::string> pages;  ///< content streams; font i is /Fi in them
  std::vector<PdfFont> fonts;
  std::string producer;
  std::string date;  ///< as PDF writes it; empty: none
};

/// The bytes of a document; the same document gives the same bytes.
/// @throws std::runtime_error when it cannot be put together.
std::string pdfBytes(const PdfDocument& document);

}  // namespace qxfont
