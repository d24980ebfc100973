#include <memory>

#include "font/contract/base_font.h"
#include "font/contract/font_file_options.h"
#include "font/directory/report_texts.h"
#include "font/sfnt/table_loader.h"
#include "font/sfnt/true_type_info.h"

namespace QXFontService_NS {
namespace {

TableFailure cannotOpen(const QXUri& uri) {
  std::string detail = sfnt::texts::kCannotOpen;
  uri.getLocalPath(false).toUTF8String(detail);
  return readFailure(detail + "\n");
}

}  // namespace

bool FS_TrueTypeInfo::loadTables(QXError* error, std::istream* stream) {
  if (tablesLoaded()) return loaded().tablesGood;
  QXMutex guard(&tableMutex_);
  if (tablesLoaded()) return loaded().tablesGood;
  if (stream == nullptr) return loadFromFile(error);
  load(error, *stream, false);
  return loaded().tablesGood;
}

/// A file that does not open leaves the font unloaded, so that the next call tries again; but it
/// never counts as good any more. Kept: a font whose file came and went is not to be trusted.
bool FS_TrueTypeInfo::loadFromFile(QXError* error) {
  const QXUri& uri = owner_->getFontFileName2();
  const std::unique_ptr<std::istream> stream(uri.getIStream(nullptr, nullptr));
  if (stream == nullptr) {
    couldNotOpen_ = true;
    report(error, cannotOpen(uri));
    return false;
  }
  const FS_FontFileOptions* options = owner_->fontEntry();
  load(error, *stream, options != nullptr && options->useZeroGlyphId);
  return loaded().tablesGood;
}

void FS_TrueTypeInfo::load(QXError* error, std::istream& stream, bool useZeroGlyph) {
  const sfnt::LoadRequest request{stream, records_, *this, owner_->isOpenType(), useZeroGlyph};
  auto tables = std::make_unique<sfnt::LoadedTables>(
      sfnt::readTables(request, [&](const TableFailure& failure) { report(error, failure); }));
  if (couldNotOpen_) tables->tablesGood = false;
  loaded_ = std::move(tables);
  published_.store(loaded_.get(), std::memory_order_release);
}

}  // namespace QXFontService_NS
