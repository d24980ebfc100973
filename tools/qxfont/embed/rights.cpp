#include "qxfont/embed/rights.h"

#include <fmt/format.h>

#include "qxfont/cli/status.h"
#include "qxfont/cli/text.h"

namespace qxfont {
namespace {

constexpr unsigned kNoSubsetting = 0x0100;
constexpr unsigned kBitmapsOnly = 0x0200;

std::string reasonOf(const QXFontService_NS::FS_FontInfo& font, bool part) {
  const unsigned licence = font.getFontEmbeddingLicence();
  if (font.getEmbedStatus() == QXFontService_NS::FS_EMBED_RESTRICTED) {
    return "its licence wants the owner's permission";
  }
  if ((licence & kBitmapsOnly) != 0) return "its licence allows bitmaps only";
  if (part && (licence & kNoSubsetting) != 0) return "its licence allows it as a whole only";
  return {};
}

/// A document's font is called as the document declares it.
std::string nameOf(const QXFontService_NS::FS_FontInfo& font) {
  const auto name = font.getFullFontName(QXFontService_NS::QXLang::LANGID_DEFAULT);
  return utf8(name.isEmpty() ? font.getFamilyNameEx() : name);
}

}  // namespace

void requireRights(const QXFontService_NS::FS_FontInfo& font, bool part) {
  const std::string reason = reasonOf(font, part);
  if (reason.empty()) return;
  throw ToolError(Status::notAllowed,
                  fmt::format("{} in {} may not be embedded: {}", nameOf(font),
                              utf8(font.getFontFileName().getLocalPath(true)), reason),
                  "--allow-restricted goes on, for those who have the right");
}

}  // namespace qxfont
