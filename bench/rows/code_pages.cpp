// Codes of Unicode to those of a legacy encoding, beside a converter of ICU that stays open.

#include <unicode/ucnv.h>

#include <memory>

#include "font/cmap/code_page.h"
#include "harness/alternate.h"
#include "harness/bench.h"

namespace qxbench {
namespace {

using QXFontService_NS::cmap::CodePage;
using QXFontService_NS::cmap::CodePageRow;

struct CloseConverter {
  void operator()(UConverter* converter) const { ucnv_close(converter); }
};

/// The code of one or two bytes; -1 for any other answer.
int convertOne(UConverter* converter, char16_t unit) {
  char bytes[8];
  UErrorCode status = U_ZERO_ERROR;
  const int32_t length = ucnv_fromUChars(converter, bytes, sizeof bytes, &unit, 1, &status);
  const auto byte = [&](int i) { return static_cast<int>(static_cast<unsigned char>(bytes[i])); };
  if (U_FAILURE(status)) return -1;
  if (length == 1) return byte(0);
  return length == 2 ? byte(0) << 8 | byte(1) : -1;
}

/// The kana and ideographs that both sides turn into the same code of two bytes.
std::vector<char16_t> equalCodes(const CodePage& page, UConverter* converter) {
  std::vector<char16_t> units;
  for (char16_t unit = 0x3041; unit < 0xA000; ++unit) {
    const int code = convertOne(converter, unit);
    if (code > 0xFF && page.convert(unit) == code) units.push_back(unit);
  }
  return units;
}

void compare(Bench& bench, const CodePageRow& row) {
  constexpr std::size_t kFew = 1000;  // every legacy encoding of East Asia has thousands
  const std::string name = std::string("code page ") + row.converter;
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<UConverter, CloseConverter> converter(ucnv_open(row.converter, &status));
  const CodePage* page = CodePage::find(row.platformID, row.encodingID);
  if (U_FAILURE(status) || page == nullptr) {
    bench.leaveOut(name, "ICU has no such converter");
    return;
  }
  const std::vector<char16_t> units = equalCodes(*page, converter.get());
  if (units.size() < kFew) {
    bench.notComparable(name, "other codes");
    return;
  }
  const auto ours = [&] {
    for (const char16_t unit : units) keep(static_cast<unsigned>(page->convert(unit)));
  };
  const auto theirs = [&] {
    for (const char16_t unit : units)
      keep(static_cast<unsigned>(convertOne(converter.get(), unit)));
  };
  const Times times = alternate(bench.settings(), {ours, {}}, {theirs, {}});
  const double each = 1e9 / static_cast<double>(units.size());
  bench.add({name, "an opened converter", "ns a code", Goal::atLeast, 3, 0, times.ours * each,
             times.theirs * each});
}

void run(Bench& bench) {
  for (const CodePageRow& row : QXFontService_NS::cmap::kCodePageRows) {
    constexpr std::uint16_t kWindows = 3;
    if (row.platformID == kWindows) compare(bench, row);
  }
}

const Row kRow{"9", "legacy code pages", run};

}  // namespace
}  // namespace qxbench
