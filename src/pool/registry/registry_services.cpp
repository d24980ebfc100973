#include "pool/registry/registry_services.h"

namespace QXFontService_NS {

FT_Library RegistryServices::freeType() {
  if (!library_) library_ = contract::freeTypeLibrary();
  return library_.get();
}

RegistryServices::~RegistryServices() {
  const QXMutex guard(&renderingLock_);
  library_.reset();
}

}  // namespace QXFontService_NS
