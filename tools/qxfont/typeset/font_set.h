#pragma once

#include <string>
#include <vector>

#include "qxfont/cli/font_style.h"
#include "qxfont/cli/open_font.h"
#include "qxfont/cli/service.h"

namespace qxfont {

/// The faces of a document, each opened once however it is asked for.
class FontSet {
 public:
  explicit FontSet(Service& service) : service_(service) {}

  /// The number of the face that answers a style or options.
  /// @throws ToolError as `openFont`, and `wrongCall` for a font that cannot be embedded.
  std::size_t faceOf(const FontStyle& style);
  std::size_t faceOf(const FontOptions& options);
  /// Appends a face to those that lend characters to the others.
  void lend(std::size_t face) { lenders_.push_back(face); }

  [[nodiscard]] const fs::FS_FontInfo& font(std::size_t face) const { return *faces_[face]; }
  [[nodiscard]] std::size_t size() const { return faces_.size(); }

  /// The glyph of a character in one face, in a Type 1 face its page and code; a variation selector
  /// behind it, or 0. 0 for none.
  [[nodiscard]] unsigned short glyphOf(std::size_t face, int codePoint, int selector) const;

  /// The first face that has a character: `first`, then the lenders; `kNoFace` when none has it.
  [[nodiscard]] std::size_t faceFor(int codePoint, std::size_t first) const;
  static constexpr std::size_t kNoFace = static_cast<std::size_t>(-1);

 private:
  Service& service_;
  std::vector<OpenFont> faces_;
  std::vector<std::size_t> lenders_;
};

}  // namespace qxfont
