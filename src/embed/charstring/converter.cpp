#include "embed/charstring/converter.h"

#include "embed/charstring/glyph_conversion.h"
#include "embed/keyword/keyword.h"

namespace QXFontService_NS {

FS_CharStringConverter::FS_CharStringConverter(const QXCommonNS::QXValue& privateMap)
    : defaultWidthX(embed::itemOf(privateMap, embed::Keyword::kDefaultWidthX).getIntegerValue()),
      nominalWidthX(embed::itemOf(privateMap, embed::Keyword::kNominalWidthX).getIntegerValue()) {}

bool FS_CharStringConverter::convertCharString(const FS_CharStringTokens& tokens, int subrCount,
                                               FS_CharStringTokens& out,
                                               std::vector<FS_CharStringTokens>& subrs) {
  x = y = 0;
  stems.clear();
  hCounters.clear();
  vCounters.clear();
  subrBase = subrCount;
  return charstring::GlyphConversion(*this, tokens, out, subrs).run();
}

}  // namespace QXFontService_NS
