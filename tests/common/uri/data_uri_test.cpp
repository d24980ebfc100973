#include "common/uri/data_uri.h"

#include <gtest/gtest.h>

#include "common/uri/percent.h"

namespace QXCommonNS::uri {
namespace {

struct DataCase {
  const char* text;
  const char* mediaType;
  const char* bytes;
};

TEST(DataUri, ReadsBothForms) {
  const DataCase cases[] = {
      {"data:,abc", "text/plain", "abc"},
      {"data:,", "text/plain", ""},
      {"data:,a%20b%zz%4", "text/plain", "a b%zz%4"},
      {"DATA:FONT/Woff,x", "font/woff", "x"},
      {"data:application/font-woff;charset=x;base64,YWJj", "application/font-woff", "abc"},
      {"data:;BASE64,YWI=", "text/plain", "ab"},
      {"data:a/b; base64 ,YQ==", "a/b", "a"},
      {"data:a/b;base64,YQ", "a/b", "a"},
      {"data:a/b;base64,Y W\nJ\tj", "a/b", "abc"},
      {"data:a/b;base64,YW%4Aj", "a/b", "abc"},
      {"data:a/b;base64,%2B%2f+/", "a/b", "\xFB\xFF\xBF"},
      {"data:a/b;base64,YWJj#font", "a/b", "abc"},
      {"data:a/b;base64;x,YWJj", "a/b", "YWJj"},
      {"data:base64,YWJj", "base64", "YWJj"},
      {"data:,a,b", "text/plain", "a,b"},
  };
  for (const DataCase& c : cases) {
    const auto content = readDataUri(c.text);
    ASSERT_TRUE(content.has_value()) << c.text;
    EXPECT_EQ(content->mediaType, c.mediaType) << c.text;
    EXPECT_EQ(content->bytes, c.bytes) << c.text;
  }
}

TEST(DataUri, RefusesWhatIsDamaged) {
  for (const char* text : {"data:", "data:a/b;base64", "data:a/b;base64,Y", "data:a/b;base64,YW*j",
                           "data:a/b;base64,YW=j", "data:a/b;base64,YWJj=", "data:a/b;base64,Y===",
                           "data:a/b;base64,YWJjYQ=", "data:a/b;base64,YQ-_", "data#,x", ",x:"}) {
    EXPECT_FALSE(readDataUri(text).has_value()) << text;
  }
}

TEST(DataUri, CutAtEveryByteNeverTellsMoreThanIsThere) {
  const std::string whole = "data:font/woff;base64,AAECAwQFBgcICQ==";
  for (std::size_t size = 5; size < whole.size(); ++size) {
    const auto content = readDataUri(whole.substr(0, size));
    EXPECT_LE(content ? content->bytes.size() : 0u, 10u);
  }
}

TEST(Percent, DecodesWhatIsEncodedOnly) {
  EXPECT_EQ(decodePercent("a%20b%2Fc%e3"), "a b/c\xE3");
  EXPECT_EQ(decodePercent("%"), "%");
  EXPECT_EQ(decodePercent("%2"), "%2");
  EXPECT_EQ(decodePercent("%2g%g2"), "%2g%g2");
  EXPECT_EQ(decodePercent("%00").size(), 1u);
  EXPECT_EQ(decodePercent(""), "");
}

}  // namespace
}  // namespace QXCommonNS::uri
