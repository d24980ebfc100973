#pragma once

#include <map>

#include "font/names/name_set.h"

namespace QXFontService_NS {

/// All names of one font: a set for each language, and the set that answers for language 0.
///
/// A language is the number that the table has: a Windows LCID, or for Macintosh records the
/// Macintosh language code, so that Macintosh English is 0.
class FontNames {
 public:
  static constexpr int kEnglish = 0x409;

  /// The set of a language, made when there is none yet.
  FS_NameSet& of(int language);
  /// The sets by rising language.
  [[nodiscard]] const std::map<int, FS_NameSet>& sets() const { return sets_; }

  /// Chooses the default names: those of `language`, else of English, else of the lowest language.
  /// The PostScript name is the English one whenever there is one, since that is the one to embed.
  void chooseDefault(int language);

  /// A name. Language 0 asks the default names, then English, then all languages by rising number;
  /// any other language is asked alone. Slots are those of `NameSlot`; empty when there is none.
  [[nodiscard]] UnicodeString get(int language, int slot) const;

  /// Replaces the PostScript name of the default names; the languages keep theirs.
  void setPostScriptName(const UnicodeString& name);

  /// Gives back what reading reserved.
  void shrink();

 private:
  [[nodiscard]] const FS_NameSet* find(int language) const;
  [[nodiscard]] UnicodeString getOfAny(int slot) const;

  std::map<int, FS_NameSet> sets_;
  FS_NameSet defaultNames_;
};

}  // namespace QXFontService_NS
