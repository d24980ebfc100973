#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <utility>
#include <vector>

#include "embed/charstring/converter.h"
#include "embed/keyword/keyword.h"

namespace QXFontService_NS::charstring {

/// The conversion of one glyph: walks its tokens operator by operator.
class GlyphConversion {
 public:
  GlyphConversion(FS_CharStringConverter& glyph, const FS_CharStringTokens& tokens,
                  FS_CharStringTokens& out, std::vector<FS_CharStringTokens>& subrs)
      : glyph_(glyph), tokens_(tokens), out_(out), subrs_(subrs) {}

  bool run();

 private:
  using Value = QXCommonNS::QXValue;
  using Operands = std::span<const Value>;

  // glyph_conversion.cpp: the walk and the width
  bool takeOperator(embed::Keyword op);
  bool writeWidth(embed::Keyword op);
  bool convert(embed::Keyword op);
  bool convertPath(embed::Keyword op);
  void emit(std::initializer_list<Value> numbers, embed::Keyword op);
  void emit(Operands numbers, embed::Keyword op);
  void advance(const Value& dx, const Value& dy);

  // hint_conversion.cpp
  bool stems(Operands operands, int kind);
  bool pendingStems();
  bool takeMask(std::vector<const FS_Stem*>& masked);
  bool hintmask();
  bool cntrmask();
  void writeCounters();

  // path_conversion.cpp
  void move(const Value& dx, const Value& dy, embed::Keyword op, Operands written);
  bool rmoveto();
  bool moveOneWay(bool horizontal);
  void line(const Value& dx, const Value& dy);
  bool lines(Operands operands);
  bool alternatingLines(bool horizontal);
  void curve(Operands six);
  void curve(std::initializer_list<Value> six);
  bool curves(Operands operands);
  bool sameWayCurves(bool horizontal);
  bool alternatingCurves(bool horizontal);
  bool rcurveline();
  bool rlinecurve();

  // flex_conversion.cpp
  bool flex();
  bool flex1();
  bool hflex();
  bool hflex1();
  void flexMoves(std::initializer_list<std::pair<Value, Value>> moves);

  FS_CharStringConverter& glyph_;
  const FS_CharStringTokens& tokens_;
  FS_CharStringTokens& out_;
  std::vector<FS_CharStringTokens>& subrs_;
  std::size_t next_ = 0;  // token to be read next
  Operands operands_;     // of the operator at hand
  embed::Keyword previous_ = embed::Keyword::kNone;
  int subrsMade_ = 0;
  std::uint64_t masked_ = 0;  // stems that masks have named so far
};

}  // namespace QXFontService_NS::charstring
