#include "embed/font_stream.h"

#include "qxcommon/mem_stream.h"

namespace QXFontService_NS::embed {

FontStream openFontStream(std::istream* given, const QXCommonNS::QXUri& location) {
  constexpr std::size_t kBlockSize = 8192;
  if (given != nullptr) return FontStream(given);
  std::unique_ptr<std::istream> opened(location.getIStream(nullptr, nullptr));
  if (opened == nullptr || location.isFile()) return FontStream(std::move(opened));
  // A plain file alone is sure to seek.
  auto memory = std::make_unique<QXCommonNS::QXMemStream>(nullptr, kBlockSize, false, true);
  memory->getMemStreamBuf()->setSource(opened.release(), true);
  return FontStream(std::move(memory));
}

}  // namespace QXFontService_NS::embed
