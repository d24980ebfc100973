#pragma once

#include <memory>

#include "pool/tables/font_pool.h"

namespace QXFontService_NS {

/// The fonts of one document. Positions in its list are the numbers that the interface tells.
class FS_ExtraFontPool : public FS_FontPool {
 public:
  FS_ExtraFontPool() = default;
  /// A pool with the same fonts, each with one more reference, and the same tables.
  [[nodiscard]] static std::unique_ptr<FS_ExtraFontPool> sharedCopy(const FS_ExtraFontPool& other);

  /// Enters the declared names alone: a document's fonts are not found by their files.
  void addFont(const FS_FontRef& ref) override;

  /// The position of the font of that URI, -1 for none.
  [[nodiscard]] int find(const UnicodeString& uri) const;

  /// Appends a font under its URI and takes one reference.
  int append(FS_BaseFont* font, const UnicodeString& uri);
};

}  // namespace QXFontService_NS
