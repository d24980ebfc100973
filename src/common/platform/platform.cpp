#include "common/platform/platform.h"

#include <atomic>

namespace QXCommonNS {
namespace {

std::atomic<FS_Platform*> replacementInTests{nullptr};

}  // namespace

FS_Platform& platform() {
  FS_Platform* replaced = replacementInTests.load(std::memory_order_acquire);
  return replaced != nullptr ? *replaced : nativePlatform();
}

void setPlatformForTests(FS_Platform* replacement) {
  replacementInTests.store(replacement, std::memory_order_release);
}

}  // namespace QXCommonNS
