#pragma once

#include <string>

namespace qxfont {

/// A sheet, in points.
struct PageSize {
  double width = 0;
  double height = 0;
};

/// The sheet of a name such as "A4"; case does not count.
/// @throws ToolError `wrongCall` for an unknown one.
PageSize pageSizeOf(const std::string& name);

/// All names, with commas.
std::string pageSizeNames();

}  // namespace qxfont
