#pragma once

#include <string>

namespace qxbench {

/// Ends the service as the end of the process would, so that it can be opened again.
void closeService();

/// Opens the service over one folder of fonts and nothing else. False when it does not open.
bool openService(const std::string& fontFolder, const std::string& scratch);

/// The service over one folder, for as long as this object lives. Handles end before it.
class OpenedService {
 public:
  OpenedService(const std::string& fontFolder, const std::string& scratch)
      : open_(openService(fontFolder, scratch)) {}
  OpenedService(const OpenedService&) = delete;
  OpenedService& operator=(const OpenedService&) = delete;
  ~OpenedService() { closeService(); }

  explicit operator bool() const { return open_; }

 private:
  bool open_;
};

}  // namespace qxbench
