#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace qxtest {

/// An INDEX of Adobe Technical Note 5176: count, offSize, offsets from 1, data. An empty one is its
/// count alone. With `offSize` 0 the smallest that fits is taken.
std::string cffIndex(const std::vector<std::string>& entries, unsigned offSize = 0);

/// How an integer operand of a DICT is written.
enum class DictForm { shortest, twoBytes, fourBytes };  // by value; 28; 29

/// The bytes of a DICT, operand by operand.
class DictBuilder {
 public:
  DictBuilder& number(int value, DictForm form = DictForm::shortest);
  DictBuilder& numbers(const std::vector<int>& values);
  /// A real from its decimal text, such as "-2.5E-3".
  DictBuilder& real(std::string_view text);
  /// An operator; 0x0C07 stands for the two bytes 12 7.
  DictBuilder& op(unsigned code);
  /// An operator behind its one operand.
  DictBuilder& entry(unsigned code, int value) { return number(value).op(code); }
  DictBuilder& raw(std::string_view bytes);

  [[nodiscard]] const std::string& str() const { return data_; }

 private:
  std::string data_;
};

/// The bytes of a Type 2 charstring.
class CharStringBuilder {
 public:
  CharStringBuilder& number(int value);
  CharStringBuilder& numbers(const std::vector<int>& values);
  /// A 16.16 number by its raw 32 bits.
  CharStringBuilder& fixed(std::uint32_t bits);
  /// An operator; 0x0C22 stands for the two bytes 12 34.
  CharStringBuilder& op(unsigned code);
  CharStringBuilder& raw(std::string_view bytes);
  /// A call of a subroutine by its number in an INDEX of `count`.
  CharStringBuilder& call(unsigned code, int subroutine, std::size_t count);

  [[nodiscard]] const std::string& str() const { return data_; }

 private:
  std::string data_;
};

/// One Font DICT of a CID-keyed font, or the Private part of a name-keyed one.
struct CffPrivate {
  DictBuilder dict;                     ///< without the Subrs operator
  std::vector<std::string> subrs;       ///< local subroutines; none: no Subrs operator
  DictBuilder fontDict;                 ///< operators before `Private` (CID-keyed only)
  DictForm form = DictForm::fourBytes;  ///< of the offset operand of this Font DICT's `Private`
};

/// Writes a "CFF " table. Public members are the parts; `build` lays them out and fills in the
/// offsets of the Top DICT.
class CffBuilder {
 public:
  std::string header{"\x01\x00\x04\x04", 4};
  std::vector<std::string> names{"Test"};
  DictBuilder top;  ///< operators written first (ROS of a CID-keyed font is not one)
  std::vector<std::string> strings;
  std::vector<std::string> globalSubrs;
  std::vector<std::string> glyphs;   ///< charstrings, glyph 0 first
  std::vector<CffPrivate> privates;  ///< one for a name-keyed font; none: no Private
  bool cid = false;                  ///< ROS, FDArray and FDSelect instead of one Private
  std::string encoding;              ///< body of a custom encoding; empty: no Encoding operator
  std::string charset;               ///< body of the charset; empty: see `predefinedCharset`
  int predefinedCharset = -1;  ///< value of a charset operator without a body; -1: no operator
  std::string fdSelect;        ///< body of FDSelect
  bool writeCharStrings = true;
  /// Order of the structures that offsets lead to; each is written when it has content.
  std::vector<std::string> order{"Encoding",    "charset", "FDSelect",
                                 "CharStrings", "FDArray", "Private"};
  DictForm offsetForm = DictForm::fourBytes;         ///< of all offsets but Private and FDArray
  DictForm privateOffsetForm = DictForm::fourBytes;  ///< of the offset of Private and of FDArray
  std::string trailer;                               ///< bytes behind everything

  [[nodiscard]] std::string build();
  /// Where a structure stands, after `build`: a name of `order`, or "TopDict" (its data),
  /// "Strings", "GlobalSubrs", "Private0", "Subrs0", "End" ... 0 where there is none.
  [[nodiscard]] std::size_t at(const std::string& name) const;

  /// Format 0 of a charset over the given SIDs (or CIDs) of glyphs 1, 2, ...
  static std::string charsetFormat0(const std::vector<int>& sids);
  /// Format 1 or 2 over ranges (first, nLeft).
  static std::string charsetRanges(int format, const std::vector<std::pair<int, int>>& ranges);
  /// FDSelect format 3 over ranges (first glyph, fd).
  static std::string fdSelect3(const std::vector<std::pair<int, int>>& ranges, int sentinel);
  /// FDSelect format 0: one fd a glyph.
  static std::string fdSelect0(const std::vector<int>& fds);

 private:
  std::string layOut();
  std::string topDict() const;
  void offsetOperator(DictBuilder& dict, const std::string& name, unsigned code,
                      DictForm form) const;
  void append(std::string& out, const std::string& name, const std::string& bytes);
  void appendPart(std::string& out, const std::string& part);
  void appendPrivate(std::string& out, std::size_t index);
  void appendFontDicts(std::string& out);
  std::string privateBytes(const CffPrivate& from) const;
  std::string fontDictBytes(std::size_t index) const;

  std::map<std::string, std::size_t> at_;
};

}  // namespace qxtest
