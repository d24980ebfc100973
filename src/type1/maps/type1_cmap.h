#pragma once

#include <map>
#include <string>

#include "qxcommon/lock.h"

#include "font/contract/base_font.h"

namespace QXFontService_NS {

/// The code pages of a font that a document uses as Type 1 fonts with at most 256 codes each: every
/// character or glyph that is asked for gets a page and a code on it, for as long as the font
/// lives.
///
/// A code is page << 8 | code; 0 is none. Any thread; one lock guards all maps. A font derives from
/// this and says what a new code is given to.
class Type1CMap {
 public:
  Type1CMap() = default;
  virtual ~Type1CMap() = default;
  Type1CMap(const Type1CMap&) = delete;
  Type1CMap& operator=(const Type1CMap&) = delete;

  /// The codes and glyph names of a page in the order in which they were given out, or null for a
  /// page without any. It stays where it is, but grows when codes are given out on its page.
  [[nodiscard]] const Type1CMapArray* getType1CMapArray(unsigned char page) const;
  /// Row `index` of that array; false, with the outputs untouched, where there is none.
  bool getType1CMapPair(unsigned char page, int index, unsigned char& code,
                        std::string& name) const;
  /// The glyph name given out for a place. Page 0 falls back to Adobe's standard encoding, with
  /// ".notdef" for the codes that it leaves free; elsewhere false, with `name` untouched.
  bool getType1GlyphName(unsigned char page, unsigned char code, std::string& name) const;

 protected:
  // For the fonts; whoever calls these holds `lock_`.

  /// Enters a name for a place: the first name stays, but each is appended to the page's array.
  void registerPageEntry(unsigned char page, unsigned char code, const std::string& name);
  /// Moves on to the next number, which is above `last`. Comes before each code that is made.
  void advanceCode(int last = 0);
  /// Makes a code of the number at hand and gives it to a character or to a glyph. Codes 0 to 32 of
  /// a page are left free when the numbers run on to it. 0, with nothing entered, when all pages
  /// are full.
  unsigned short assignNewCode(int character, const std::string& name);
  unsigned short assignNewGlyphCode(unsigned short glyph, const std::string& name);
  /// Gives a character a code that is there already.
  unsigned short remember(int character, unsigned short code);

  mutable QXLock lock_;
  int nextCode_ = 127;
  std::map<int, unsigned short> codesByCharacter_;
  std::map<unsigned short, unsigned short> codesByGlyph_;
  std::map<unsigned short, unsigned short> glyphsByCode_;
  std::map<unsigned char, std::map<unsigned char, std::string>> namesByPage_;
  std::map<unsigned char, Type1CMapArray> pairsByPage_;
  /// Numbers up to here are not given to glyphs; 0 where a font does not say.
  int type1CodeLimit_ = 0;

 private:
  unsigned short makeCode(const std::string& name);
};

}  // namespace QXFontService_NS
