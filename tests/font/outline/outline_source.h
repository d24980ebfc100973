#pragma once

#include <memory>
#include <sstream>
#include <string>

#include "font/outline/file_window.h"

namespace qxtest {

/// A font in memory that counts how often it is opened.
class OpenedBytes {
 public:
  explicit OpenedBytes(std::string bytes) : bytes_(std::move(bytes)) {}

  [[nodiscard]] QXFontService_NS::outline::OpenFont opener() {
    return [this] {
      ++opened;
      return QXFontService_NS::embed::FontStream(std::make_unique<std::istringstream>(bytes_));
    };
  }

  int opened = 0;

 private:
  std::string bytes_;
};

}  // namespace qxtest
