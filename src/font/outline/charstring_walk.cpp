#include "font/outline/charstring_walk.h"

#include <algorithm>
#include <utility>

#include "embed/cff/fd_select.h"
#include "embed/charstring/type2_interpreter.h"
#include "embed/charstring/type2_operators.h"

namespace QXFontService_NS::outline {
namespace {

using embed::Keyword;

constexpr unsigned char kNoFontDict = 0xFF;

// Without a call the work is the bytes; most glyphs of large fonts are so.
bool mayCall(const FS_CFFBytes& bytes) {
  constexpr char kCallSubr = 10;
  constexpr char kCallGSubr = 29;
  return bytes.find(kCallSubr) != FS_CFFBytes::npos || bytes.find(kCallGSubr) != FS_CFFBytes::npos;
}

FS_CFFBytes stringOf(ByteView view) {
  FS_CFFBytes bytes;
  bytes.reserve(view.size());
  for (const std::byte byte : view.span()) bytes.push_back(static_cast<char>(byte));
  return bytes;
}

}  // namespace

bool CharStringWalk::isBounded(std::uint16_t glyph, const OpenFont& open) {
  if (!structuresRead_) readStructures(open);
  if (glyph >= charStrings_.count) return true;
  if (glyph >= verdicts_.size()) verdicts_.resize(charStrings_.count, Verdict::open);
  Verdict& verdict = verdicts_[glyph];
  if (verdict == Verdict::open) verdict = walk(glyph, open) ? Verdict::bounded : Verdict::refused;
  return verdict == Verdict::bounded;
}

// Each that fails is taken as empty: FreeType may read the font all the same.
void CharStringWalk::readStructures(const OpenFont& open) {
  structuresRead_ = true;
  const embed::FontStream stream = open();
  if (stream.get() == nullptr) return;
  if (info_ == nullptr && ownInfo_.readCFF(*stream.get(), cff_.offset)) info_ = &ownInfo_;
  if (info_ == nullptr) return;
  const cff::CffTable table = {stream.get(), cff_.offset, cff_.length};
  if (!cff::readCFFIndexHeader(table, info_->topInteger(Keyword::kCharStrings), charStrings_))
    charStrings_ = {};
  if (!cff::readGlobalSubrs(table, globalSubrs_)) globalSubrs_.clear();
  readFontDicts(table);
}

void CharStringWalk::readFontDicts(const cff::CffTable& table) {
  if (!info_->isCID) {
    QXCommonNS::QXValue unused;
    cff::LocalSubrs& subrs = localSubrs_.emplace_back();
    if (!cff::readLocalSubrs(table, info_->topDict, unused, subrs)) subrs.reset();
    return;
  }
  cff::FontDicts dicts;
  if (cff::readFDArray(table, *info_, dicts)) localSubrs_ = std::move(dicts.subrs);
  if (!cff::readFDSelect(table, *info_, fdSelect_)) fdSelect_.clear();
}

bool CharStringWalk::walk(std::uint16_t glyph, const OpenFont& open) {
  std::int64_t position = 0;
  std::uint32_t size = 0;
  if (!charStrings_.locate(glyph, position, size) || position < 0) return true;
  bytes_ = stringOf(window_.read(static_cast<std::uint64_t>(position), size, open));
  if (!mayCall(bytes_)) return bytes_.size() <= mostWork_;
  charstring::WorkBudget budget(mostWork_);
  return charstring::walkCharString(bytes_, globalSubrs_, localSubrs(glyph), operands_, budget);
}

const FS_CFFStrings& CharStringWalk::localSubrs(std::uint16_t glyph) const {
  const std::size_t fd = info_->isCID ? cff::getFDIndex(fdSelect_, glyph, kNoFontDict) : 0;
  return cff::stringsOf(fd < localSubrs_.size() ? localSubrs_[fd] : nullptr);
}

}  // namespace QXFontService_NS::outline
