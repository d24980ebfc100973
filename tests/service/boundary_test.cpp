#include <gtest/gtest.h>

#include <ostream>
#include <vector>

#include "qxfontservice/extra_font_manager.h"
#include "qxfontservice/font_info.h"
#include "qxfontservice/new_text_metric_ex.h"
#include "qxfontservice/service.h"

#include "pool/registry/font_registry.h"
#include "support/memory_platform.h"

namespace QXFontService_NS {
namespace {

constexpr auto kLang = QXLang::LANGID_DEFAULT;

int noFace(FS_FontResourceType, const FS_EnumLogFontEx*, const FS_NewTextMetricEx*, void*) {
  return 0;
}

QXUri uriOf(const char16_t* path) {
  return QXUri(path, QXCommonNS::URISTR_USER);
}

/// A public call in a world where the service does not open, and whether its answer is the one
/// that it has for that.
struct Row {
  const char* call;
  bool (*answersAsFixed)();
};

std::ostream& operator<<(std::ostream& out, const Row& row) {
  return out << row.call;
}

const Row kRows[] = {
    {"FontServiceOpen",
     [] {
       QXError error;
       return FontServiceOpen(nullptr, &error) == FS_ERROR_CONFIG_NOT_FOUND &&
              error.getErrorCode() == 1026;
     }},
    {"FS_AddFontFolderPath", [] { return FS_AddFontFolderPath(uriOf(u"/f")) == 0; }},
    {"FS_EnumFontFamilies",
     [] { return FS_EnumFontFamilies(u"", noFace, nullptr, nullptr, 0) == 1; }},
    {"FS_GetFontError", [] { return FS_GetFontError(nullptr, 0) == -1; }},
    {"FS_GetFontFoldPathVector",
     [] {
       std::vector<UnicodeString> folders = {u"old"};
       return !FS_GetFontFoldPathVector(nullptr, folders) && folders.empty();
     }},
    {"appendExtraFont",
     [] {
       FS_ExtraFontManager manager;
       QXError error;
       return manager.appendExtraFont(u"/a.woff", FS_FILETYPE_UNKNOWN, u"A", 0, -1, &error) == -1 &&
              error.getErrorCode() == 1026;
     }},
    {"appendExtraFont without a record",
     [] {
       FS_ExtraFontManager manager;
       return manager.appendExtraFont(u"/a.woff", FS_FILETYPE_UNKNOWN, u"A", 0, -1, nullptr) == -1;
     }},
    {"createFont by name",
     [] {
       FS_FontInfo info;
       return !info.createFont(u"A", 400, false) && info.getError().getErrorCode() == 1026;
     }},
    {"createFont by URI",
     [] {
       FS_FontInfo info;
       return !info.createFont(uriOf(u"/a.ttf")) && info.getError().getErrorCode() == 1026;
     }},
    {"getFontFolderPath",
     [] {
       bool isExtra = true;
       return FS_FontInfo::getFontFolderPath(u"A", 0, false, 0, nullptr, &isExtra).isEmpty() &&
              !isExtra;
     }},
    {"getNewTextMetricEx",
     [] {
       FS_NewTextMetricEx metric;
       return !FS_FontInfo::getNewTextMetricEx(u"A", 0, false, 0, metric, nullptr);
     }},
    {"getFamilyName by name",
     []() -> bool { return FS_FontInfo::getFamilyName(kLang, u"A", nullptr).isEmpty(); }},
    {"isEUDC", [] { return !FS_FontInfo::isEUDC(0xE000); }},
};

/// A world without any font folder: opening the service fails once.
class ServiceThatDoesNotOpen : public testing::Test {
 protected:
  ServiceThatDoesNotOpen() : inPlace_(world_) {}
  ~ServiceThatDoesNotOpen() override { resetServiceForTests(); }

 private:
  qxtest::MemoryPlatform world_;
  qxtest::PlatformInPlace inPlace_;
};

class CallThatDoesNotOpen : public ServiceThatDoesNotOpen,
                            public testing::WithParamInterface<Row> {};

TEST_P(CallThatDoesNotOpen, LetsNoErrorOutAndHasItsFixedAnswer) {
  bool asFixed = false;
  EXPECT_NO_THROW(asFixed = GetParam().answersAsFixed());
  EXPECT_TRUE(asFixed);
}

INSTANTIATE_TEST_SUITE_P(Calls, CallThatDoesNotOpen, testing::ValuesIn(kRows));

TEST_F(ServiceThatDoesNotOpen, IsThrownByTheOpeningWithoutARecordAlone) {
  try {
    FontServiceOpen(nullptr, nullptr);
    FAIL() << "it opened";
  } catch (const QXError& error) {
    EXPECT_EQ(error.getErrorCode(), 1026);
  }
}

}  // namespace
}  // namespace QXFontService_NS
