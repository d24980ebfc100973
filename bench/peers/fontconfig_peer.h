#pragma once

#include <fontconfig/fontconfig.h>

#include <memory>
#include <string>

#include "harness/font_sets.h"

namespace qxbench {

struct FontconfigFree {
  void operator()(FcFontSet* set) const { FcFontSetDestroy(set); }
  void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
  void operator()(FcConfig* config) const { FcConfigDestroy(config); }
};
template <class T>
using Fontconfig = std::unique_ptr<T, FontconfigFree>;

/// What fontconfig's scan does for each file: all faces as patterns, without its cache.
Fontconfig<FcFontSet> scanWithFontconfig(const Paths& files);

/// A configuration of one folder, built, with no rules of the system: its cheapest match.
Fontconfig<FcConfig> configureFontconfig(const std::string& folder, const std::string& scratch);

/// One request as an application makes it: pattern, substitution, match. The answer is the best
/// pattern, never null where the configuration has a font.
Fontconfig<FcPattern> matchWithFontconfig(FcConfig* config, const std::string& family, int weight);

/// A text of a pattern; empty when it has no such one.
std::string textOf(const FcPattern* pattern, const char* object, int index = 0);

}  // namespace qxbench
