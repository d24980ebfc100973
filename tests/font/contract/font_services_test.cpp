#include "font/contract/font_services.h"

#include <gtest/gtest.h>

#include "qxcommon/lock.h"

namespace QXFontService_NS {
namespace {

class OtherServices final : public FS_FontServices {
 public:
  bool windowsMetrics() const override { return true; }
  bool reservedMetricsSwitch() const override { return true; }
  bool usePreferredFamily() const override { return false; }
  bool isEudc(int) const override { return true; }
  FS_FontRef eudcDefault(bool) const override { return {}; }
  FT_Library freeType() override { return nullptr; }
  QXLock& renderingLock() override { return lock_; }

 private:
  QXLock lock_;
};

TEST(FontServices, WithoutARegistryTheDefaultsHold) {
  EXPECT_FALSE(fontServices().windowsMetrics());
  EXPECT_FALSE(fontServices().reservedMetricsSwitch());
  EXPECT_TRUE(fontServices().usePreferredFamily());
  EXPECT_FALSE(fontServices().isEudc(0xE000));
  EXPECT_EQ(fontServices().eudcDefault(false).font, nullptr);
  EXPECT_EQ(fontServices().eudcDefault(true).font, nullptr);
  EXPECT_NE(fontServices().freeType(), nullptr);
}

TEST(FontServices, InstalledOnesAnswerUntilTheyAreTakenAway) {
  OtherServices services;
  setFontServices(&services);
  EXPECT_EQ(&fontServices(), &services);
  EXPECT_TRUE(fontServices().isEudc(1));
  setFontServices(nullptr);
  EXPECT_NE(&fontServices(), &services);
  EXPECT_FALSE(fontServices().isEudc(1));
}

}  // namespace
}  // namespace QXFontService_NS
