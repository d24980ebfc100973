#include "peers/fontconfig_peer.h"

#include <fontconfig/fcfreetype.h>

#include <filesystem>

namespace qxbench {
namespace {

/// Fontconfig takes texts as unsigned characters; the one cast between them.
const FcChar8* fcText(const std::string& text) {
  return static_cast<const FcChar8*>(static_cast<const void*>(text.c_str()));
}

}  // namespace

Fontconfig<FcFontSet> scanWithFontconfig(const Paths& files) {
  Fontconfig<FcFontSet> set(FcFontSetCreate());
  for (const std::string& file : files) {
    int faces = 0;
    FcFreeTypeQueryAll(fcText(file), static_cast<unsigned>(-1), nullptr, &faces, set.get());
  }
  return set;
}

Fontconfig<FcConfig> configureFontconfig(const std::string& folder, const std::string& scratch) {
  const std::string cache = scratch + "/fontconfig-cache";
  std::filesystem::create_directories(cache);
  const std::string rules = "<?xml version='1.0'?><fontconfig><dir>" + folder + "</dir><cachedir>" +
                            cache + "</cachedir></fontconfig>";
  Fontconfig<FcConfig> config(FcConfigCreate());
  FcConfigParseAndLoadFromMemory(config.get(), fcText(rules), FcTrue);
  FcConfigBuildFonts(config.get());
  return config;
}

Fontconfig<FcPattern> matchWithFontconfig(FcConfig* config, const std::string& family, int weight) {
  const Fontconfig<FcPattern> wanted(FcPatternCreate());
  FcPatternAddString(wanted.get(), FC_FAMILY, fcText(family));
  FcPatternAddInteger(wanted.get(), FC_WEIGHT, FcWeightFromOpenType(weight));
  FcConfigSubstitute(config, wanted.get(), FcMatchPattern);
  FcDefaultSubstitute(wanted.get());
  FcResult result = FcResultNoMatch;
  return Fontconfig<FcPattern>(FcFontMatch(config, wanted.get(), &result));
}

std::string textOf(const FcPattern* pattern, const char* object, int index) {
  FcChar8* text = nullptr;
  if (FcPatternGetString(pattern, object, index, &text) != FcResultMatch) return {};
  return static_cast<const char*>(static_cast<const void*>(text));
}

}  // namespace qxbench
