#include "font/cmap/code_page.h"

#include <unicode/ucnv.h>

#include <memory>

namespace QXFontService_NS::cmap {
namespace {

struct CloseConverter {
  void operator()(UConverter* converter) const { ucnv_close(converter); }
};
using Converter = std::unique_ptr<UConverter, CloseConverter>;

Converter openConverter(const char* name) {
  UErrorCode status = U_ZERO_ERROR;
  Converter converter(ucnv_open(name, &status));
  return U_SUCCESS(status) ? std::move(converter) : nullptr;  // an ambiguous alias is no failure
}

int codeOf(const std::array<char, 4>& bytes, int count, char16_t unit) {
  const auto byteAt = [&bytes](std::size_t i) { return static_cast<std::uint8_t>(bytes[i]); };
  if (count == 2) return byteAt(0) << 8 | byteAt(1);
  if (count != 1 || (bytes[0] == '?' && unit != u'?')) return CodePage::kNoCode;
  return byteAt(0);
}

int convertUnit(UConverter* converter, char16_t unit) {
  std::array<char, 4> bytes{};
  UErrorCode status = U_ZERO_ERROR;
  const int count =
      ucnv_fromUChars(converter, bytes.data(), static_cast<int>(bytes.size()), &unit, 1, &status);
  return U_SUCCESS(status) ? codeOf(bytes, count, unit) : CodePage::kNoCode;
}

}  // namespace

std::array<CodePage, kCodePages>& CodePage::all() {
  // Never destroyed: a thread may still look up text when the process ends.
  static auto* const pages = [] {
    auto* made = new std::array<CodePage, kCodePages>();
    for (std::size_t i = 0; i < kCodePages; ++i) (*made)[i].row_ = &kCodePageRows[i];
    return made;
  }();
  return *pages;
}

const CodePage* CodePage::find(std::uint16_t platformID, std::uint16_t encodingID) {
  for (const CodePage& page : all()) {
    if (page.row_->platformID == platformID && page.row_->encodingID == encodingID) return &page;
  }
  return nullptr;
}

int CodePage::convert(int code) const {
  if (code < 0 || code > 0xFFFF) return kNoCode;
  const auto unit = static_cast<std::size_t>(code);
  return block(unit / kBlock)[unit % kBlock];
}

const CodePage::Block& CodePage::block(std::size_t high) const {
  std::atomic<const Block*>& slot = blocks_[high];
  const Block* present = slot.load(std::memory_order_acquire);
  if (present != nullptr) return *present;
  const Block* made = makeBlock(high);
  if (slot.compare_exchange_strong(present, made, std::memory_order_acq_rel)) return *made;
  delete made;  // another thread was first
  return *present;
}

const CodePage::Block* CodePage::makeBlock(std::size_t high) const {
  auto made = std::make_unique<Block>();
  made->fill(kNoCode);
  if (const Converter converter = openConverter(row_->converter)) {
    for (std::size_t low = 0; low < kBlock; ++low) {
      (*made)[low] = convertUnit(converter.get(), static_cast<char16_t>(high * kBlock + low));
    }
  }
  for (const FixedCode& fixed : row_->fixed) {
    if (fixed.code != 0 && fixed.unit / kBlock == high) (*made)[fixed.unit % kBlock] = fixed.code;
  }
  return made.release();
}

}  // namespace QXFontService_NS::cmap
