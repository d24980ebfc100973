#pragma once

#include <cstdint>

#include "harness/font_sets.h"

namespace qxbench {

/// Drops the files from the page cache, which needs no rights once they are on the disk.
void dropFromPageCache(const Paths& files);

/// The bytes of the files that are in the page cache now.
std::uint64_t bytesInPageCache(const Paths& files);

/// What this process asked of the system so far, as /proc/self/io counts it.
struct ReadCounts {
  std::uint64_t bytes = 0;
  std::uint64_t calls = 0;
};
ReadCounts readCounts();

}  // namespace qxbench
