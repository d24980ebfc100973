#include "pool/config/config_report.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "qxcommon/error.h"

#include "service/errors/error_sink.h"

namespace QXFontService_NS {
namespace {

class ConfigReport : public testing::Test, private ErrorSink {
 protected:
  ConfigReport() { setErrorSink(this); }
  ~ConfigReport() override { setErrorSink(nullptr); }

  std::vector<std::string> collected;

 private:
  void append(const QXError& error) override {
    std::string text;
    collected.push_back(error.getErrorMessage().toUTF8String(text));
  }
};

TEST_F(ConfigReport, ElementAndAttributeAreKeywordsByNumber) {
  FS_ConfigErrorK(1936, 89, 116, u"x", u"/c.xml");
  FS_ConfigErrorK(1937, 92, 123, u"/c.xml", u"");
  EXPECT_EQ(collected, (std::vector<std::string>{
                           "Invalid value: <font-config name-processing-mode=\"x\"> in /c.xml",
                           "Empty value: <font-folder path> in /c.xml"}));
}

TEST_F(ConfigReport, ANumberOfNoKeywordIsTheEmptyText) {
  FS_ConfigErrorK(1940, 166, -1, u"x", u"/c.xml");
  EXPECT_EQ(collected, std::vector<std::string>{"Already registered value: < =\"x\"> in /c.xml"});
}

TEST_F(ConfigReport, ACodeOfTheThrownKindIsThrown) {
  EXPECT_THROW(FS_ConfigErrorK(1028, 89, 0, u"", u""), QXError);
  EXPECT_TRUE(collected.empty());
}

}  // namespace
}  // namespace QXFontService_NS
