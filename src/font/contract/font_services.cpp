#include "font/contract/font_services.h"

#include <atomic>

#include "qxcommon/lock.h"

#include "font/contract/free_type_face.h"

namespace QXFontService_NS {
namespace {

class DefaultFontServices final : public FS_FontServices {
 public:
  bool windowsMetrics() const override { return false; }
  bool reservedMetricsSwitch() const override { return false; }
  bool usePreferredFamily() const override { return true; }
  bool isEudc(int) const override { return false; }
  FS_FontRef eudcDefault(bool) const override { return {}; }
  FT_Library freeType() override {
    if (!library_) library_ = contract::freeTypeLibrary();
    return library_.get();
  }
  QXLock& renderingLock() override { return renderingLock_; }

 private:
  QXLock renderingLock_;
  contract::FreeTypeLibrary library_;
};

std::atomic<FS_FontServices*> installedServices{nullptr};

FS_FontServices& defaultServices() {
  // Never destroyed: fonts of a host's static objects close their faces under its lock.
  static FS_FontServices& services = *new DefaultFontServices;
  return services;
}

}  // namespace

FS_FontServices& fontServices() {
  FS_FontServices* services = installedServices.load(std::memory_order_acquire);
  return services != nullptr ? *services : defaultServices();
}

void setFontServices(FS_FontServices* services) {
  installedServices.store(services, std::memory_order_release);
}

}  // namespace QXFontService_NS
