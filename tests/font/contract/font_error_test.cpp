#include "font/contract/font_error.h"

#include <gtest/gtest.h>

#include "qxcommon/error.h"
#include "qxcommon/ptr.h"
#include "qxcommon/uri.h"

#include "font/contract/plain_font.h"

namespace QXFontService_NS {
namespace {

QXPtr<qxtest::PlainFont> fontOf(const char16_t* uri) {
  return QXPtr<qxtest::PlainFont>(new qxtest::PlainFont(QXUri(uri, QXCommonNS::URISTR_USER)));
}

TEST(FontError, HoldsTextDetailAndLocalPath) {
  QXError error;
  FS_SetFontError(*fontOf(u"/fonts/a.ttf"), error, 1928, u"'head' table not found");
  EXPECT_EQ(error.getErrorCode(), 1928);
  EXPECT_TRUE(error.getErrorMessage() == u"Font file error: 'head' table not found\n/fonts/a.ttf");
}

TEST(FontError, OfAFontThatIsNoLocalFileEndsInTheLineFeed) {
  QXError error;
  FS_SetFontError(*fontOf(u"data:font/ttf,abc"), error, 1921, u"");
  EXPECT_TRUE(error.getErrorMessage() == u"Font read error.\n");
}

TEST(FontError, ReplacesWhatWasReportedBefore) {
  QXError error;
  FS_SetFontError(*fontOf(u"/a"), error, 1928, u"first");
  FS_SetFontError(*fontOf(u"/a"), error, 1921, u"second");
  EXPECT_EQ(error.getErrorCode(), 1921);
  EXPECT_TRUE(error.getErrorMessage() == u"Font read error: second\n/a");
}

TEST(FontError, WithoutARecordNothingIsReported) {
  reportFontError(*fontOf(u"/a"), nullptr, 1928, u"x");
  QXError error;
  reportFontError(*fontOf(u"/a"), &error, 1928, u"x");
  EXPECT_EQ(error.getErrorCode(), 1928);
}

}  // namespace
}  // namespace QXFontService_NS
