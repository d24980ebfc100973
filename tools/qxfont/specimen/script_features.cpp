#include "qxfont/specimen/script_features.h"

#include <unicode/uscript.h>

#include <algorithm>

#include "qxfont/shape/feature_list.h"
#include "qxfont/shape/script_tags.h"

namespace qxfont {
namespace {

namespace fs = QXFontService_NS;
using Tags = std::vector<LayoutTag>;

bool has(const Tags& tags, LayoutTag tag) {
  return std::find(tags.begin(), tags.end(), tag) != tags.end();
}

void addOnce(Tags& tags, LayoutTag tag) {
  if (!has(tags, tag)) tags.push_back(tag);
}

Tags once(const Tags& tags) {
  Tags unique;
  for (const LayoutTag tag : tags) addOnce(unique, tag);
  return unique;
}

/// All tags under which a font may keep a script: no query tells which ones it has.
Tags knownScripts() {
  Tags tags = {kDefaultScript, layoutTag("latn"), layoutTag("math")};
  for (int script = USCRIPT_INHERITED + 1; script < USCRIPT_CODE_LIMIT; ++script) {
    for (const LayoutTag tag : scriptTags(static_cast<UScriptCode>(script))) addOnce(tags, tag);
  }
  return tags;
}

}  // namespace

std::vector<ScriptFeatures> scriptFeatures(const fs::FS_FontInfo& font) {
  std::vector<ScriptFeatures> all;
  for (const LayoutTag script : knownScripts()) {
    const FeatureList list = featureList(font, script, 0);
    if (list.gsub.empty() && list.gpos.empty()) continue;
    ScriptFeatures own{{script}, once(list.gsub), once(list.gpos)};
    const auto same = std::find_if(all.begin(), all.end(), [&](const ScriptFeatures& other) {
      return other.gsub == own.gsub && other.gpos == own.gpos;
    });
    if (same != all.end()) {
      same->scripts.push_back(script);
    } else {
      all.push_back(std::move(own));
    }
  }
  return all;
}

bool hasFeature(const std::vector<ScriptFeatures>& all, LayoutTag tag) {
  return std::any_of(all.begin(), all.end(), [&](const ScriptFeatures& one) {
    return has(one.gsub, tag) || has(one.gpos, tag);
  });
}

std::string tagsText(const Tags& tags) {
  std::string text;
  for (const LayoutTag tag : tags) text += (text.empty() ? "" : " ") + tagText(tag);
  return text;
}

}  // namespace qxfont
