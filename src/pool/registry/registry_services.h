#pragma once

#include "qxcommon/lock.h"

#include "font/contract/font_ref.h"
#include "font/contract/font_services.h"
#include "font/contract/free_type_face.h"
#include "pool/settings/service_settings.h"

namespace QXFontService_NS {

/// What fonts ask of the service, answered from the registry's settings.
class RegistryServices final : public FS_FontServices {
 public:
  explicit RegistryServices(const ServiceSettings& settings) : settings_(settings) {}
  ~RegistryServices();
  RegistryServices(const RegistryServices&) = delete;
  RegistryServices& operator=(const RegistryServices&) = delete;

  [[nodiscard]] bool windowsMetrics() const override { return settings_.windowsMetrics; }
  [[nodiscard]] bool reservedMetricsSwitch() const override { return false; }
  [[nodiscard]] bool usePreferredFamily() const override { return settings_.usePreferredFamily; }
  [[nodiscard]] bool isEudc(int codePoint) const override {
    return settings_.eudcSet.contains(codePoint);
  }
  [[nodiscard]] FS_FontRef eudcDefault(bool vertical) const override {
    return vertical ? eudcVerticalDefault_ : eudcDefault_;
  }
  FT_Library freeType() override;
  QXLock& renderingLock() override { return renderingLock_; }

  void setEudcDefault(bool vertical, const FS_FontRef& ref) {
    (vertical ? eudcVerticalDefault_ : eudcDefault_) = ref;
  }

 private:
  const ServiceSettings& settings_;
  FS_FontRef eudcDefault_;
  FS_FontRef eudcVerticalDefault_;
  QXLock renderingLock_;
  contract::FreeTypeLibrary library_;
};

}  // namespace QXFontService_NS
