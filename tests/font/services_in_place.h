#pragma once

#include "font/contract/font_services.h"

namespace qxtest {

/// The facts of the service as a test sets them, installed as long as this lives.
class ServicesInPlace final : public QXFontService_NS::FS_FontServices {
 public:
  ServicesInPlace() : before_(QXFontService_NS::fontServices()) {
    QXFontService_NS::setFontServices(this);
  }
  ServicesInPlace(const ServicesInPlace&) = delete;
  ServicesInPlace& operator=(const ServicesInPlace&) = delete;
  ~ServicesInPlace() { QXFontService_NS::setFontServices(nullptr); }

  bool windows = false;
  bool reserved = false;
  bool preferredFamily = true;
  int eudcCode = -1;
  QXFontService_NS::FS_FontRef horizontalEudc;
  QXFontService_NS::FS_FontRef verticalEudc;

  bool windowsMetrics() const override { return windows; }
  bool reservedMetricsSwitch() const override { return reserved; }
  bool usePreferredFamily() const override { return preferredFamily; }
  bool isEudc(int codePoint) const override { return codePoint == eudcCode; }
  QXFontService_NS::FS_FontRef eudcDefault(bool vertical) const override {
    return vertical ? verticalEudc : horizontalEudc;
  }
  FT_Library freeType() override { return before_.freeType(); }
  QXFontService_NS::QXLock& renderingLock() override { return before_.renderingLock(); }

 private:
  QXFontService_NS::FS_FontServices& before_;
};

}  // namespace qxtest
