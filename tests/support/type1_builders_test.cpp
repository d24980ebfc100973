#include <gtest/gtest.h>

#include "support/afm_builder.h"
#include "support/byte_text.h"
#include "support/pfm_builder.h"
#include "support/type1_builder.h"

namespace qxtest {
namespace {

TEST(AfmBuilder, WritesTheSectionsThatAreNotEmpty) {
  AfmBuilder file;
  EXPECT_EQ(file.build(),
            "StartFontMetrics 4.1\nFontName Made-Roman\nFullName Made Roman\nFamilyName Made\n"
            "Weight Medium\nEncodingScheme AdobeStandardEncoding\nFontBBox -50 -200 1000 1050\n"
            "EndFontMetrics\n");
  file.headers = {"ItalicAngle -12"};
  file.glyph(65, 700, "A").kern("A", "V", -80);
  const std::string text = file.build();
  EXPECT_NE(text.find("1050\nItalicAngle -12\nStartCharMetrics 1\n"
                      "C 65 ; WX 700 ; N A ; B 0 0 700 700 ;\nEndCharMetrics\n"
                      "StartKernData\nStartKernPairs 1\nKPX A V -80\nEndKernPairs\nEndKernData\n"),
            std::string::npos);
}

TEST(PfmBuilder, PutsFieldsWhereTheFormatHasThem) {
  PfmBuilder file;
  file.kernPairs = {{{32, 33}, -2}};
  const std::string bytes = file.build();
  EXPECT_EQ(bytes.substr(0, 2), bytesOf({0, 1}));
  EXPECT_EQ(bytes.substr(6, 11), std::string("(c) Nobody\0", 11));
  EXPECT_EQ(bytes.substr(83, 2), bytesOf({0x90, 1}));        // weight
  EXPECT_EQ(bytes.substr(95, 2), bytesOf({32, 34}));         // first and last character
  EXPECT_EQ(bytes.substr(119, 4), bytesOf({147, 0, 0, 0}));  // text metrics behind the extension
  EXPECT_EQ(bytes.substr(bytes.size() - 6), bytesOf({1, 0, 32, 33, 0xFE, 0xFF}));
}

TEST(Type1Builder, SegmentsSayWhatTheyHold) {
  EXPECT_EQ(type1Segment(1, "abc"), bytesOf({0x80, 1, 3, 0, 0, 0, 'a', 'b', 'c'}));
  const std::string pfb = Type1Builder().glyph(".notdef", type1Box(250, 10)).pfb();
  EXPECT_EQ(pfb.substr(0, 2), bytesOf({0x80, 1}));
  EXPECT_EQ(pfb.substr(pfb.size() - 2), bytesOf({0x80, 3}));
}

TEST(Type1Builder, EncryptsAsTheFormatsOwnExample) {
  // The private part of every program begins so: four bytes, and then "dup /Private".
  EXPECT_EQ(type1Encrypted(std::string(1, '\0'), kEexecKey), bytesOf({55665 >> 8}));
  EXPECT_EQ(type1Encrypted("", kCharStringKey), "");
}

TEST(Type1Builder, NumbersOfACharString) {
  EXPECT_EQ(type1Number(0), bytesOf({139}));
  EXPECT_EQ(type1Number(-107), bytesOf({32}));
  EXPECT_EQ(type1Number(107), bytesOf({246}));
  EXPECT_EQ(type1Number(108), bytesOf({247, 0}));
  EXPECT_EQ(type1Number(-108), bytesOf({251, 0}));
  EXPECT_EQ(type1Number(1000), bytesOf({250, 124}));
}

}  // namespace
}  // namespace qxtest
