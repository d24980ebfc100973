#include "qxfont/shape/script_tags.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <string>

namespace qxfont {
namespace {

struct ScriptTag {
  UScriptCode script;
  LayoutTag tag;
};

// Tags that are not the ISO 15924 code in lower case, and the second tags of the scripts of India,
// whose newer shaping rules came with them.
constexpr ScriptTag kScriptTags[] = {
    {USCRIPT_HIRAGANA, layoutTag("kana")}, {USCRIPT_KATAKANA_OR_HIRAGANA, layoutTag("kana")},
    {USCRIPT_LAO, layoutTag("lao")},       {USCRIPT_YI, layoutTag("yi")},
    {USCRIPT_NKO, layoutTag("nko")},       {USCRIPT_VAI, layoutTag("vai")},
    {USCRIPT_BENGALI, layoutTag("bng2")},  {USCRIPT_DEVANAGARI, layoutTag("dev2")},
    {USCRIPT_GUJARATI, layoutTag("gjr2")}, {USCRIPT_GURMUKHI, layoutTag("gur2")},
    {USCRIPT_KANNADA, layoutTag("knd2")},  {USCRIPT_MALAYALAM, layoutTag("mlm2")},
    {USCRIPT_ORIYA, layoutTag("ory2")},    {USCRIPT_TAMIL, layoutTag("tml2")},
    {USCRIPT_TELUGU, layoutTag("tel2")},   {USCRIPT_MYANMAR, layoutTag("mym2")},
};

LayoutTag tagOfCode(UScriptCode script) {
  std::string code = uscript_getShortName(script);
  std::transform(code.begin(), code.end(), code.begin(),
                 [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
  return layoutTag(code);
}

}  // namespace

std::vector<LayoutTag> scriptTags(UScriptCode script) {
  std::vector<LayoutTag> tags;
  for (const ScriptTag& entry : kScriptTags)
    if (entry.script == script) tags.push_back(entry.tag);
  if (script > USCRIPT_INHERITED) tags.push_back(tagOfCode(script));
  tags.push_back(kDefaultScript);
  tags.push_back(layoutTag("latn"));
  return tags;
}

}  // namespace qxfont
