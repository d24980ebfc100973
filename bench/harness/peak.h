#pragma once

#include <functional>

namespace qxbench {

/// The most memory that a work held at one time beyond what was held before it, in bytes: pages
/// of the process, as the kernel counts them, from a heap that has given back what it held free.
/// 0 where the kernel does not tell.
double peakBytes(const std::function<void()>& work);

}  // namespace qxbench
