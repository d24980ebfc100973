#include "font/contract/file_type_rule.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace QXFontService_NS {
namespace {

constexpr FS_FontFileType kNoHint = FS_FILETYPE_UNKNOWN;
const std::string kOtto = "OTTO\0\0";
const std::string kTrueType("\0\1\0\0\0\0", 6);

FS_FontFileType typeOf(const UnicodeString& extension, FS_FontFileType hint,
                       const std::string& content) {
  std::istringstream stream(content);
  return fontFileTypeOf(extension, hint, &stream);
}

struct Row {
  const char16_t* extension;
  FS_FontFileType type;    // without a stream
  FS_FontFileType onOtto;  // on a stream that starts with "OTTO"
  FS_FontFileType onOther;
};

const Row kRows[] = {
    {u".afm", FS_FILETYPE_TYPE1_AFM, FS_FILETYPE_TYPE1_AFM, FS_FILETYPE_TYPE1_AFM},
    {u".pfm", FS_FILETYPE_TYPE1_PFM, FS_FILETYPE_TYPE1_PFM, FS_FILETYPE_TYPE1_PFM},
    {u".ttf", FS_FILETYPE_TRUETYPE, FS_FILETYPE_OPENTYPE, FS_FILETYPE_TRUETYPE},
    {u".ttc", FS_FILETYPE_TTC, FS_FILETYPE_TTC, FS_FILETYPE_TTC},
    {u".otf", FS_FILETYPE_OPENTYPE, FS_FILETYPE_OPENTYPE, FS_FILETYPE_TRUETYPE},
    {u".dfont", FS_FILETYPE_DFONT, FS_FILETYPE_DFONT, FS_FILETYPE_DFONT},
    {u".woff", FS_FILETYPE_WOFF, FS_FILETYPE_WOFF, FS_FILETYPE_WOFF},
    {u".TTF", FS_FILETYPE_TRUETYPE, FS_FILETYPE_OPENTYPE, FS_FILETYPE_TRUETYPE},
    {u".Otf", FS_FILETYPE_OPENTYPE, FS_FILETYPE_OPENTYPE, FS_FILETYPE_TRUETYPE},
};

TEST(FileTypeRule, ExtensionAndFirstBytesDecideTogether) {
  for (const Row& row : kRows) {
    EXPECT_EQ(fontFileTypeOf(row.extension, kNoHint, nullptr), row.type) << row.type;
    EXPECT_EQ(typeOf(row.extension, kNoHint, kOtto), row.onOtto) << row.type;
    EXPECT_EQ(typeOf(row.extension, kNoHint, kTrueType), row.onOther) << row.type;
  }
}

TEST(FileTypeRule, TheTableHoldsSevenExtensions) {
  ASSERT_EQ(fontFileExtensions().size(), 7U);
  for (const FontFileExtension& row : fontFileExtensions()) {
    const UnicodeString extension(row.extension.data(), static_cast<int32_t>(row.extension.size()));
    EXPECT_EQ(fontFileTypeOfExtension(extension), row.type);
  }
}

TEST(FileTypeRule, OtherExtensionsAreUnknown) {
  for (const char16_t* extension :
       {u".pfb", u".pfa", u".otc", u".woff2", u".tte", u"ttf", u".", u"", u".ttf "}) {
    EXPECT_EQ(fontFileTypeOfExtension(extension), FS_FILETYPE_UNKNOWN);
    EXPECT_EQ(typeOf(extension, kNoHint, kOtto), FS_FILETYPE_UNKNOWN);
  }
}

TEST(FileTypeRule, ByteHintsLookAtTheBytesAlone) {
  for (const FS_FontFileType hint : {FS_FILETYPE_HINT_BYTES, FS_FILETYPE_HINT_BYTES2}) {
    EXPECT_EQ(typeOf(u".ttf", hint, kOtto), FS_FILETYPE_OPENTYPE);
    EXPECT_EQ(typeOf(u".otf", hint, kTrueType), FS_FILETYPE_TRUETYPE);
    EXPECT_EQ(typeOf(u".ttc", hint, "ttcf"), FS_FILETYPE_TRUETYPE);
    EXPECT_EQ(typeOf(u".otf", hint, "wOFF"), FS_FILETYPE_TRUETYPE);
    EXPECT_EQ(typeOf(u".otf", hint, ""), FS_FILETYPE_TRUETYPE);
    EXPECT_EQ(fontFileTypeOf(u".otf", hint, nullptr), FS_FILETYPE_TRUETYPE);
  }
}

TEST(FileTypeRule, TheOtherHintsNameTheKindOfAnUnknownExtension) {
  EXPECT_EQ(typeOf(u".x", FS_FILETYPE_HINT_PFM, kTrueType), FS_FILETYPE_TYPE1_PFM);
  EXPECT_EQ(typeOf(u"", FS_FILETYPE_HINT_TRUETYPE, kTrueType), FS_FILETYPE_TRUETYPE);
  EXPECT_EQ(typeOf(u".tte", FS_FILETYPE_HINT_TRUETYPE, kOtto), FS_FILETYPE_OPENTYPE);
  EXPECT_EQ(typeOf(u".ttc", FS_FILETYPE_HINT_TRUETYPE, kOtto), FS_FILETYPE_TTC);
  EXPECT_EQ(typeOf(u".afm", FS_FILETYPE_HINT_PFM, kOtto), FS_FILETYPE_TYPE1_AFM);
}

TEST(FileTypeRule, OfCidKeyedFontsTheBytesDecideToo) {
  std::istringstream otto(kOtto);
  std::istringstream other(kTrueType);
  EXPECT_EQ(refineFontFileType(FS_FILETYPE_OPENTYPE_CID, otto), FS_FILETYPE_OPENTYPE_CID);
  EXPECT_EQ(refineFontFileType(FS_FILETYPE_OPENTYPE_CID, other), FS_FILETYPE_TRUETYPE);
}

TEST(FileTypeRule, LooksAtTheBytesFromThePositionOnAndPutsItBack) {
  std::istringstream stream("xxOTTOyy");
  stream.seekg(2);
  EXPECT_EQ(fontFileTypeOf(u".ttf", kNoHint, &stream), FS_FILETYPE_OPENTYPE);
  EXPECT_EQ(stream.tellg(), std::istream::pos_type(2));
}

TEST(FileTypeRule, AShortFileIsNotOpenTypeAndStaysReadable) {
  for (const char* content : {"", "O", "OT", "OTT"}) {
    std::istringstream stream(content);
    EXPECT_EQ(fontFileTypeOf(u".otf", kNoHint, &stream), FS_FILETYPE_TRUETYPE) << content;
    EXPECT_TRUE(stream.good()) << content;
    EXPECT_EQ(stream.tellg(), std::istream::pos_type(0)) << content;
  }
}

}  // namespace
}  // namespace QXFontService_NS
