#pragma once

#include <atomic>

#include "font/contract/font_ref.h"

namespace QXFontService_NS::contract {

/// The EUDC font of a face. It is set while the service opens and may be cleared by any thread
/// later, when the linked font does not open.
class EudcLink {
 public:
  void set(const FS_FontRef& ref) {
    entry_.store(ref.entry, std::memory_order_relaxed);
    font_.store(ref.font, std::memory_order_release);
  }
  [[nodiscard]] FS_FontRef get() const {
    FS_FontRef ref;
    ref.font = font_.load(std::memory_order_acquire);
    if (ref.font != nullptr) ref.entry = entry_.load(std::memory_order_relaxed);
    return ref;
  }

 private:
  std::atomic<FS_BaseFont*> font_{nullptr};
  std::atomic<short> entry_{0};
};

}  // namespace QXFontService_NS::contract
