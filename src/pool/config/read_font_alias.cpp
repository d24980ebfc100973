#include <optional>

#include "pool/config/config_report.h"
#include "pool/config/config_values.h"
#include "pool/config/read_config.h"
#include "pool/config/read_file_options.h"

namespace QXFontService_NS::config {
namespace {

constexpr int kLightestWeight = 100;
constexpr int kHeaviestWeight = 900;

/// The face that `entry` names, from 0; read for collections only.
bool readEntry(ConfigSource& source, const UnicodeString& key, int& out) {
  const UnicodeString text = source.attribute(kEntry);
  if (text.isEmpty() || !key.endsWith(UnicodeString(u".ttc"))) return true;
  const std::optional<int> number = integerOf(text);
  if (!number) return reportValue(source, FS_ERROR_NOT_INTEGER, kFontAlias, kEntry, text);
  if (*number <= 0) return reportValue(source, FS_ERROR_INVALID_VALUE, kFontAlias, kEntry, text);
  out = *number - 1;
  return true;
}

/// An integer, kept even when it is out of range, or a word.
bool readWeight(ConfigSource& source, int& out) {
  const UnicodeString text = source.attribute(kWeight);
  if (text.isEmpty()) return true;
  const std::optional<int> number = integerOf(text);
  out = number ? *number : weightOfWord(text);
  if (out >= kLightestWeight && out <= kHeaviestWeight) return true;
  return reportValue(source, FS_ERROR_INVALID_VALUE, kAlias, kWeight, text);
}

bool readItalic(ConfigSource& source, int& out) {
  const UnicodeString text = source.attribute(kItalic);
  if (text.isEmpty()) return true;
  const std::optional<bool> italic = booleanOf(text);
  if (!italic) return reportValue(source, FS_ERROR_INVALID_VALUE, kAlias, kItalic, text);
  out = *italic ? 1 : 0;
  return true;
}

bool readAlias(ConfigSource& source, FS_FontFileAliases& aliases) {
  FS_FontAlias alias;
  alias.familyName = source.attribute(kFamilyName);
  if (alias.familyName.isEmpty()) return reportEmpty(source, kAlias, kFamilyName);
  if (!readWeight(source, alias.weight) || !readItalic(source, alias.italic)) return false;
  alias.stretch = stretchOf(source.attribute(kStretch));
  if (aliases.aliases.insert(alias).second) return true;
  return reportValue(source, FS_ERROR_ALREADY_REGISTERED, kAlias, kFamilyName, alias.familyName);
}

bool readAliases(ConfigSource& source, FS_FontFileAliases& aliases) {
  bool insideAlias = false;
  for (Event event = source.next(); event != Event::finished; event = source.next()) {
    const int word = source.word();
    if (event == Event::end) {
      if (word == kFontAlias) return true;
      if (word != kAlias) throwUnexpectedEnd(source);
      insideAlias = false;
      continue;
    }
    if (insideAlias || word != kAlias) throwUnexpectedStart(source);
    insideAlias = true;
    if (!readAlias(source, aliases)) return false;
  }
  return false;
}

}  // namespace

bool readFontAlias(ConfigSource& source, FS_FontFolder& folder) {
  UnicodeString file;
  if (!readFileName(source, kFontAlias, kFile, file)) return false;
  const FS_FontFileName name{fileKey(file), file};
  FS_FontFileAliases aliases;
  if (folder.aliases.count(name) != 0) {
    if (!reportValue(source, FS_ERROR_ALREADY_REGISTERED, kFontAlias, kFile, file)) return false;
    return readAliases(source, aliases);  // read for its errors, without effect
  }
  if (!readEntry(source, name.lowerName, aliases.entry)) return false;
  return readAliases(source, folder.aliases.insert({name, aliases}).first->second);
}

}  // namespace QXFontService_NS::config
