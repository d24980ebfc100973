#pragma once

#include <malloc.h>

namespace qxbench {

/// The bytes that malloc has given out and not got back. What mapped files hold is not in it.
inline double heapBytes() {
  const struct mallinfo2 info = mallinfo2();
  return static_cast<double>(info.uordblks + info.hblkhd);
}

}  // namespace qxbench
