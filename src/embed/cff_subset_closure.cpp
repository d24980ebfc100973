#include "embed/cff_subset_closure.h"

#include <bitset>

#include "embed/cff/operands.h"
#include "embed/charstring/flat_decoder.h"
#include "type1/maps/standard_strings.h"

namespace QXFontService_NS::embed {
namespace {

constexpr std::uint16_t kNoGlyph = 0xFFFF;

/// Follows the operands of a charstring to the `endchar` of a composite.
class CompositeWatcher final : public charstring::FlatTokenSink {
 public:
  void number(int value) override { stack_.push_back(value); }

  void keyword(Keyword keyword) override {
    if (keyword == Keyword::kReturn) return;
    if (keyword == Keyword::kCallsubr || keyword == Keyword::kCallgsubr) {
      if (!stack_.empty()) stack_.pop_back();
      return;
    }
    if (keyword == Keyword::kEndchar && stack_.size() >= 4) takeParts();
    stack_.clear();
  }

  /// StandardEncoding codes, accent before base.
  [[nodiscard]] const std::vector<int>& codes() const { return codes_; }

 private:
  void takeParts() {
    codes_.push_back(stack_[stack_.size() - 1]);
    codes_.push_back(stack_[stack_.size() - 2]);
  }

  std::vector<int> stack_;
  std::vector<int> codes_;
};

}  // namespace

bool CompositeFinder::readSubrs() {
  const QXCommonNS::QXValue& place = itemOf(source_.info->topDict, Keyword::kPrivate);
  const bool isEmpty = !place.isNull() && FS_Operand(place, 1).getIntegerValue() == 0;
  if (isEmpty && allowed_.emptyPrivate) return true;
  QXCommonNS::QXValue privateMap;
  return cff::readLocalSubrs(source_.table, source_.info->topDict, privateMap, localSubrs_);
}

bool CompositeFinder::open() {
  return cff::readGlobalSubrs(source_.table, globalSubrs_) && readSubrs() &&
         cff::readCFFIndexHeader(source_.table, source_.info->topInteger(Keyword::kCharStrings),
                                 charStrings_);
}

bool CompositeFinder::addParts(std::uint16_t glyph, std::vector<std::uint16_t>& parts) {
  FS_CFFBytes charString;
  if (!cff::readCFFIndexEntry(charStrings_, *source_.table.stream, glyph, charString)) return false;
  int stackDepth = 0;
  int hintCount = 0;
  CompositeWatcher watcher;
  if (!charstring::walkFlat(charString, globalSubrs_, cff::stringsOf(localSubrs_), stackDepth,
                            hintCount, budget_, watcher))
    return false;
  for (const int code : watcher.codes()) addPart(code, parts);
  return true;
}

void CompositeFinder::addPart(int code, std::vector<std::uint16_t>& parts) const {
  if (code <= 0 || code > 255) return;
  const std::uint16_t sid = type1::kStandardEncodingSids[static_cast<std::size_t>(code)];
  const std::uint16_t glyph =
      allowed_.isoAdobe && sid != 0 ? sid : source_.info->getGIDFromCID(sid);
  if (glyph != kNoGlyph) parts.push_back(glyph);
}

bool addCompositeGlyphs(const CffSubsetSource& source, std::vector<std::uint16_t>& glyphs) {
  CompositeFinder finder(source);
  if (!finder.open()) return false;
  std::vector<std::uint16_t> parts;
  for (const std::uint16_t glyph : glyphs)
    if (glyph != kNoGlyph && !finder.addParts(glyph, parts)) return false;
  std::bitset<0x10000> present;
  for (const std::uint16_t glyph : glyphs) present.set(glyph);
  for (const std::uint16_t part : parts) {
    if (!present.test(part)) glyphs.push_back(part);
    present.set(part);
  }
  return true;
}

}  // namespace QXFontService_NS::embed
