#pragma once

#include <unicode/unistr.h>

#include <set>
#include <unordered_map>
#include <vector>

#include "common/text/keyed_hash.h"
#include "font/contract/base_font.h"
#include "font/contract/font_key_sink.h"
#include "pool/tables/font_family.h"
#include "pool/tables/match_font.h"

namespace QXFontService_NS {

/// What a lookup in one pool found, and how.
struct PoolHit {
  FS_FontRef ref;                   ///< null: nothing
  FS_FontFamily* family = nullptr;  ///< valid until the pool dies
  bool byFileName = false;
  MatchStep step = MatchStep::none;
};

/// A list of fonts with the tables under which they are found.
///
/// The list holds one reference a font; the tables point at fonts without one. Keys are
/// normalised when they are entered, so that a lookup normalises the request alone. All
/// operations but `findFont` want the global lock held by the caller.
class FS_FontPool : public FS_FontKeySink {
 public:
  using NameTable =
      std::unordered_map<UnicodeString, FS_FontFamily, QXCommonNS::text::KeyedTextHash>;

  FS_FontPool() = default;
  FS_FontPool(const FS_FontPool&) = delete;
  FS_FontPool& operator=(const FS_FontPool&) = delete;
  virtual ~FS_FontPool();

  /// Makes room in the tables for the keys of so many more fonts; a hint, not taken beyond
  /// thousands.
  void expectFonts(std::size_t count);

  /// Enters all keys of the font and drops the reference that the caller passes with it. The
  /// font is asked for its style keys twice, with and without the extension of its file, so
  /// that "arial" finds what "arial.ttf" finds.
  virtual void addFont(const FS_FontRef& ref);

  /// Enters a font under its PostScript name, made unique by `prefix` and a counter behind it,
  /// and gives the font that name: what an end-user-defined font is found by.
  virtual void addFontUnique(FS_BaseFont* font, const UnicodeString& prefix);

  /// The face that answers a request; a null ref when the family is unknown. Takes the global
  /// lock, since the first miss fills the family.
  FS_FontRef findFont(const UnicodeString& name, const FS_FontKey& key);

  /// The same, with how the answer came about.
  PoolHit lookUp(const UnicodeString& name, const FS_FontKey& key);

  /// Finds a family by its normalised name, else by a file name as it is given, lower-cased.
  /// `out` is valid until the pool dies and is left as it was when the answer is false.
  bool findFamily(const UnicodeString& name, FS_FontFamily*& out);

  /// Appends to the list and takes one reference.
  void keepFont(FS_BaseFont* font);

  void addFileName(const QXUri& uri, const FS_FontRef& ref, const FS_FontKey& key) override;
  void addFamilyNames(const std::set<UnicodeString>& names, const FS_FontRef& ref,
                      const FS_FontKey& key) override;

  /// Enters one name by hand (aliases); an empty normal form is passed over.
  void addFamilyName(const UnicodeString& name, const FS_FontRef& ref, const FS_FontKey& key);

  [[nodiscard]] const std::vector<FS_BaseFont*>& fonts() const { return fonts_; }
  [[nodiscard]] NameTable& fileTable() { return fileTable_; }
  [[nodiscard]] NameTable& familyTable() { return familyTable_; }

  /// Clears the tables and releases the fonts.
  void clear();

 protected:
  bool findFamily(const UnicodeString& name, FS_FontFamily*& out, bool& byFileName);

  std::vector<FS_BaseFont*> fonts_;
  NameTable fileTable_;
  NameTable familyTable_;
  std::unordered_map<UnicodeString, int, QXCommonNS::text::KeyedTextHash> uriTable_;
};

}  // namespace QXFontService_NS
