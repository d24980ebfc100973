#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "qxfont/typeset/font_set.h"
#include "qxfont/typeset/page.h"
#include "qxfont/typeset/page_size.h"
#include "qxfont/typeset/used_glyphs.h"

namespace qxfont {

enum class DocumentKind { pdf, postScript, html, svg };

/// The kind of document that a file's extension asks for.
/// @return false for another extension.
bool documentKindOf(const std::string& file, DocumentKind& kind);

/// What a document has beside its pages.
struct DocumentFrame {
  std::string title;  ///< UTF-8, as it is read
  PageSize page;
  std::string date;  ///< as PDF writes it; empty: none
};

/// A document, and what there is to be told of the fonts in it.
struct WrittenDocument {
  struct Font {
    const char* form;
    std::size_t bytes;
  };
  std::string bytes;
  std::size_t pages = 0;
  std::vector<Font> fonts;  ///< in step with those that it was written with
};

/// What a document of these pages has a font for: each face that they use, of a Type 1 face each
/// page of codes.
std::vector<UsedGlyphs> documentFonts(const std::vector<Page>& pages, const FontSet& fonts);

/// Writes a document with its fonts; the same pages give the same bytes.
/// @param used of `documentFonts`; receives the codes that glyphs have in the document.
/// @throws ToolError `badFont` for a font that does not give its glyphs, `wrongCall` for one that
///   this kind of document cannot hold.
WrittenDocument writeDocument(DocumentKind kind, const DocumentFrame& frame,
                              const std::vector<Page>& pages, std::vector<UsedGlyphs>& used,
                              const FontSet& fonts);

}  // namespace qxfont
