#include "embed/charstring/type1_charstrings.h"

#include <initializer_list>
#include <utility>

#include "embed/cff/fd_select.h"
#include "embed/charstring/converter.h"
#include "embed/charstring/type2_interpreter.h"

namespace QXFontService_NS::charstring {

using embed::CffSubsetSource;
using embed::Keyword;

namespace {

constexpr std::uint16_t kNoGlyph = 0xFFFF;
constexpr unsigned char kNoFontDict = 0xFF;

/// Interprets the glyphs of one call.
class Collector {
 public:
  Collector(const CffSubsetSource& source, const CharStringContext& context,
            std::vector<FS_CharStringTokens>& out, std::vector<unsigned char>& fdIndexes)
      : source_(source),
        context_(context),
        out_(out),
        fdIndexes_(fdIndexes),
        budget_(context.mostTokens) {}

  bool open() {
    return cff::readCFFIndexHeader(source_.table, source_.info->topInteger(Keyword::kCharStrings),
                                   charStrings_);
  }

  bool add(std::uint16_t glyph) {
    const unsigned char fd = source_.info->isCID
                                 ? cff::getFDIndex(context_.fdSelect, glyph, kNoFontDict)
                                 : static_cast<unsigned char>(0);
    const FS_CFFStrings& localSubrs = cff::stringsOf(context_.localSubrs.at(fd));
    FS_CFFBytes bytes;
    if (!cff::readCFFIndexEntry(charStrings_, *source_.table.stream, glyph, bytes)) return false;
    HintCounters counters;
    fdIndexes_.push_back(fd);
    return interpretCharString(bytes, context_.globalSubrs, localSubrs, out_.emplace_back(),
                               counters, budget_);
  }

 private:
  const CffSubsetSource& source_;
  const CharStringContext& context_;
  std::vector<FS_CharStringTokens>& out_;
  std::vector<unsigned char>& fdIndexes_;
  FS_CFFIndexHeader charStrings_;
  WorkBudget budget_;  // of the whole call
};

bool readContext(const CffSubsetSource& source, CharStringContext& context,
                 std::vector<QXCommonNS::QXValue>& privates) {
  if (!source.info->isCID) {
    return cff::readLocalSubrs(source.table, source.info->topDict, privates.emplace_back(),
                               context.localSubrs.emplace_back()) &&
           cff::readGlobalSubrs(source.table, context.globalSubrs);
  }
  cff::FontDicts dicts;
  if (!cff::readGlobalSubrs(source.table, context.globalSubrs)) return false;
  if (!cff::readFDSelect(source.table, *source.info, context.fdSelect)) return false;
  if (!cff::readFDArray(source.table, *source.info, dicts)) return false;
  privates = std::move(dicts.privates);
  context.localSubrs = std::move(dicts.subrs);
  return true;
}

// Converts each list of tokens; all Font DICTs share one list of Subrs.
bool convertAll(const std::vector<FS_CharStringTokens>& glyphs, std::uint64_t mostTokens,
                Type1CharStrings& out) {
  std::uint64_t kept = 0;
  for (std::size_t i = 0; i < glyphs.size(); ++i) {
    FS_CharStringConverter converter(out.privates.at(out.fdIndexes[i]));
    const std::size_t before = out.subrs.size();
    if (!converter.convertCharString(glyphs[i], static_cast<int>(before),
                                     out.charStrings.emplace_back(), out.subrs))
      return false;
    kept += out.charStrings.back().size();
    for (std::size_t k = before; k < out.subrs.size(); ++k) kept += out.subrs[k].size();
    if (kept > mostTokens) return false;
  }
  return true;
}

FS_CharStringTokens tokens(std::initializer_list<int> numbers,
                           std::initializer_list<Keyword> keywords) {
  FS_CharStringTokens list;
  for (const int number : numbers) list.emplace_back(number);
  for (const Keyword keyword : keywords) list.push_back(embed::keywordValue(keyword));
  return list;
}

}  // namespace

std::vector<FS_CharStringTokens> fixedSubrs() {
  return {tokens({3, 0}, {Keyword::kCallothersubr, Keyword::kPop, Keyword::kPop,
                          Keyword::kSetcurrentpoint, Keyword::kReturn}),
          tokens({0, 1}, {Keyword::kCallothersubr, Keyword::kReturn}),
          tokens({0, 2}, {Keyword::kCallothersubr, Keyword::kReturn}),
          tokens({}, {Keyword::kReturn})};
}

bool collectCharStrings(const CffSubsetSource& source, const std::vector<std::uint16_t>& gids,
                        const CharStringContext& context, std::vector<FS_CharStringTokens>& out,
                        std::vector<unsigned char>& fdIndexes) {
  Collector collector(source, context, out, fdIndexes);
  if (!collector.open() || !collector.add(0)) return false;
  for (const std::uint16_t glyph : gids) {
    if (glyph == 0 || glyph == kNoGlyph) continue;
    if (!collector.add(glyph)) return false;
  }
  return true;
}

bool makeType1CharStrings(const CffSubsetSource& source, const std::vector<std::uint16_t>& gids,
                          Type1CharStrings& out, CharStringContext context) {
  out = {};
  std::vector<FS_CharStringTokens> glyphs;
  if (!readContext(source, context, out.privates)) return false;
  if (!collectCharStrings(source, gids, context, glyphs, out.fdIndexes)) return false;
  out.subrs = fixedSubrs();
  return convertAll(glyphs, context.mostTokens, out);
}

}  // namespace QXFontService_NS::charstring
