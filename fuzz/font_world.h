#pragma once

#include <functional>
#include <string>

#include "qxfontservice/font_info.h"

namespace qxfuzz {

/// Opens face after face of a font file that stands in memory alone, and hands each over.
/// @param extension of the file, with its point; the service goes by it.
void withFont(const std::string& bytes, const std::string& extension,
              const std::function<void(const QXFontService_NS::FS_FontInfo&)>& use);

/// Adds a font file that stands in memory alone to a document's own, and hands over the face that
/// the document's name for it finds; nothing where the file is refused.
void withDocumentFont(const std::string& bytes, const std::string& extension,
                      const std::function<void(const QXFontService_NS::FS_FontInfo&)>& use);
/// Puts another file beside that of `withFont`, or takes it away.
void putFile(const std::string& extension, const std::string& bytes);
void removeFile(const std::string& extension);

// Each asks a font what a host asks of it, and drops the answers.

void askNames(const QXFontService_NS::FS_FontInfo& font);
void askCharacters(const QXFontService_NS::FS_FontInfo& font);
void askMetrics(const QXFontService_NS::FS_FontInfo& font);
void askEmbedding(const QXFontService_NS::FS_FontInfo& font);
void askLayout(const QXFontService_NS::FS_FontInfo& font);
/// All of them.
void askAll(const QXFontService_NS::FS_FontInfo& font);

}  // namespace qxfuzz
