#include "pool/config/config_uri.h"

#include <string>

#include "common/platform/platform.h"

namespace QXFontService_NS {
namespace {

constexpr const char* kModule = "QXFontService13.dll";
constexpr const char* kFileName = "font-config.xml";

/// What a value may hold besides its closing zero: longer ones count as empty.
constexpr std::size_t kBuffer = 1024;

std::string valueOf(const char* envName) {
  std::string value;
  if (envName == nullptr || *envName == '\0') return {};
  if (!QXCommonNS::platform().environment(envName, value)) return {};
  return value.size() < kBuffer ? value : std::string();
}

}  // namespace

QXCommonNS::QXUri FS_ConfigUri(const char* envName) {
  const std::string value = valueOf(envName);
  return QXCommonNS::QXUri::getModuleUri(kModule, value.empty() ? kFileName : value.c_str(),
                                         nullptr);
}

icu::UnicodeString configVariable(const char* envName) {
  return icu::UnicodeString::fromUTF8(valueOf(envName));
}

}  // namespace QXFontService_NS
