#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <iterator>

#include "font/contract/base_font.h"

namespace QXFontService_NS {
namespace {

#if defined(__GNUC__) && (defined(__x86_64__) || defined(__i386__))

// The place of a virtual operation in the table of its class: the Itanium C++ ABI keeps it, as a
// byte offset plus 1, in the first word of a member pointer.
template <class Member>
std::ptrdiff_t slotIn(Member member) {
  std::ptrdiff_t word = 0;
  static_assert(sizeof(member) >= sizeof(word));
  std::memcpy(&word, &member, sizeof(word));
  return (word - 1) / static_cast<std::ptrdiff_t>(sizeof(void*));
}

template <class Result, class... Args>
std::ptrdiff_t slotOf(Result (FS_BaseFont::*member)(Args...)) {
  return slotIn(member);
}
template <class Result, class... Args>
std::ptrdiff_t slotOf(Result (FS_BaseFont::*member)(Args...) const) {
  return slotIn(member);
}

TEST(BaseFontOrder, TheOperationsStandInTheirFixedOrder) {
  const std::ptrdiff_t slots[] = {
      slotOf(&FS_BaseFont::getFontFileName2),
      slotOf(&FS_BaseFont::getTrueTypeInfo),
      slotOf(&FS_BaseFont::getFontFileType),
      slotOf(&FS_BaseFont::getFontFileType2),
      slotOf(&FS_BaseFont::isType1Font),
      slotOf(&FS_BaseFont::isTrueTypeFont),
      slotOf(&FS_BaseFont::isType1OrNoCID),
      slotOf(&FS_BaseFont::isTrueTypeOrCID),
      slotOf(&FS_BaseFont::isOpenType),
      slotOf(&FS_BaseFont::isExtraFont),
      slotOf(&FS_BaseFont::getExtraBaseFont),
      slotOf(&FS_BaseFont::readFont),
      slotOf(&FS_BaseFont::readExtraFont),
      slotOf(&FS_BaseFont::loadFontTables),
      slotOf(&FS_BaseFont::getEntryCount),
      slotOf(&FS_BaseFont::addStyleKeys),
      slotOf(&FS_BaseFont::addNameKeys),
      slotOf(&FS_BaseFont::getFamilyName),
      slotOf(&FS_BaseFont::getFamilyNameEx),
      slotOf(&FS_BaseFont::getSubFamilyName),
      slotOf(&FS_BaseFont::getFullFontName),
      slotOf(&FS_BaseFont::getPostScriptName),
      slotOf(&FS_BaseFont::getPreferredFamily),
      slotOf(&FS_BaseFont::getPreferredSubFamily),
      slotOf(&FS_BaseFont::getPostScriptCIDFindfontName),
      slotOf(&FS_BaseFont::setPostScriptName),
      slotOf(&FS_BaseFont::getFontWeight),
      slotOf(&FS_BaseFont::isItalicFont),
      slotOf(&FS_BaseFont::getFontStretch),
      slotOf(&FS_BaseFont::getFontWeight2),
      slotOf(&FS_BaseFont::isItalicFont2),
      slotOf(&FS_BaseFont::getFontStretch2),
      slotOf(&FS_BaseFont::getCopyright),
      slotOf(&FS_BaseFont::getManufacturer),
      slotOf(&FS_BaseFont::getLicenseDescription),
      slotOf(&FS_BaseFont::getLogFont),
      slotOf(&FS_BaseFont::getNewTextMetricEx),
      slotOf(&FS_BaseFont::getOutlineTextMetrics),
      slotOf(&FS_BaseFont::getCodePageRangeBitFields),
      slotOf(&FS_BaseFont::getTextWidth),
      slotOf(&FS_BaseFont::getXHeight),
      slotOf(&FS_BaseFont::getCapHeight),
      slotOf(&FS_BaseFont::getTypoAscender),
      slotOf(&FS_BaseFont::getTypoDescender),
      slotOf(&FS_BaseFont::getGlyphID),
      slotOf(&FS_BaseFont::getGlyphIDs),
      slotOf(&FS_BaseFont::getGlyphClassDef),
      slotOf(&FS_BaseFont::getGlyphWidth),
      slotOf(&FS_BaseFont::getStringID),
      slotOf(&FS_BaseFont::getCFFFont),
      slotOf(&FS_BaseFont::getGSUBGPOSInfo),
      slotOf(&FS_BaseFont::isSymbolicFont),
      slotOf(&FS_BaseFont::isFixedWidthFont),
      slotOf(&FS_BaseFont::isSerifLikeFont),
      slotOf(&FS_BaseFont::isScriptLikeFont),
      slotOf(&FS_BaseFont::getEmbedableCharCount),
      slotOf(&FS_BaseFont::canEmbedFont),
      slotOf<bool, const GlyphIDs&, QXMemStream&, const unsigned int*, int, std::istream*>(
          &FS_BaseFont::getEmbedFont),
      slotOf<bool, const GlyphIDs&, QXMemStream&, int, std::istream*>(&FS_BaseFont::getEmbedFont),
      slotOf(&FS_BaseFont::getSVG2EmbedFont),
      slotOf(&FS_BaseFont::getEmbedFontWithCmap),
      slotOf(&FS_BaseFont::getEmbedFontStream),
      slotOf(&FS_BaseFont::getPSEmbedFont),
      slotOf(&FS_BaseFont::makeWebFont),
      slotOf(&FS_BaseFont::makeSubsetFont),
      slotOf(&FS_BaseFont::isEmbeddingAllowed),
      slotOf(&FS_BaseFont::getEmbedStatus),
      slotOf(&FS_BaseFont::getFontEmbeddingLicence),
      slotOf(&FS_BaseFont::getEncodingScheme),
      slotOf(&FS_BaseFont::getCIDSystemInfo),
      slotOf(&FS_BaseFont::hasVerticalGlyph),
      slotOf(&FS_BaseFont::hasVerticalMetrics),
      slotOf(&FS_BaseFont::setEudcFlag),
      slotOf(&FS_BaseFont::getUnitsPerEm),
      slotOf(&FS_BaseFont::hasVariationSelector),
      slotOf(&FS_BaseFont::variationSequence),
      slotOf(&FS_BaseFont::getDefaultCharWidth),
      slotOf(&FS_BaseFont::hasPairKerningInfo),
      slotOf(&FS_BaseFont::getPairKerningValue),
      slotOf(&FS_BaseFont::getFamilyClass),
      slotOf(&FS_BaseFont::getFamilySubclass),
      slotOf(&FS_BaseFont::getPanose),
      slotOf(&FS_BaseFont::getType1CharCode),
      slotOf(&FS_BaseFont::getType1GlyphIDCode),
      slotOf(&FS_BaseFont::getType1CMapArray),
      slotOf(&FS_BaseFont::getType1CMapPair),
      slotOf(&FS_BaseFont::getType1GlyphName),
      slotOf<bool, const GlyphIDs&, QXMemStream&, int, std::istream*>(
          &FS_BaseFont::getType1EmbedFont),
      slotOf<bool, unsigned char, const char*, int, QXMemStream&, int&, int&, int&, int>(
          &FS_BaseFont::getType1EmbedFont),
      slotOf(&FS_BaseFont::getType1FontStream),
      slotOf(&FS_BaseFont::setEudcFont),
      slotOf(&FS_BaseFont::getEudcFont),
      slotOf(&FS_BaseFont::getEudcGlyphID),
      slotOf(&FS_BaseFont::getFreeTypeFace),
      slotOf(&FS_BaseFont::makePostScriptCIDFontType0),
      slotOf(&FS_BaseFont::getMemStream),
      slotOf(&FS_BaseFont::getDefaultVertOriginY),
      slotOf(&FS_BaseFont::getGlyphVertOriginY),
  };
  ASSERT_EQ(std::size(slots), 98U);  // behind the three of the run-time identity
  for (std::size_t i = 1; i < std::size(slots); ++i)
    EXPECT_EQ(slots[i], slots[i - 1] + 1) << "operation " << i + 4;
}

TEST(BaseFontOrder, TheRunTimeIdentityComesFirst) {
  const std::ptrdiff_t first = slotOf(&FS_BaseFont::getClassID);
  EXPECT_EQ(slotOf(&FS_BaseFont::isKindOf), first + 1);
  EXPECT_EQ(slotOf(&FS_BaseFont::getClassName), first + 2);
  EXPECT_EQ(slotOf(&FS_BaseFont::getFontFileName2), first + 3);
}

#endif

}  // namespace
}  // namespace QXFontService_NS
