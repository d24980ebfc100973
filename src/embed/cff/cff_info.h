#pragma once

#include <cstdint>
#include <istream>
#include <string>
#include <vector>

#include "qxcommon/value.h"

#include "embed/cff/fd_array.h"
#include "embed/cff/index.h"
#include "embed/cff/ranges.h"
#include "embed/keyword/keyword.h"

namespace QXFontService_NS {

/// What stays in memory of the "CFF " table of a font (Adobe Technical Note 5176): its Top DICT,
/// its strings, its custom encoding and the maps of its charset.
class FS_CFFInfo {
 public:
  bool isCID = false;                        ///< the Top DICT has `ROS`
  unsigned short registrySID = 0;            ///< first operand of `ROS`
  unsigned short orderingSID = 0;            ///< second
  unsigned int supplement = 0;               ///< third
  std::vector<std::string> strings;          ///< the String INDEX; entry 0 is SID 391
  std::vector<unsigned char> encodingCodes;  ///< custom encoding: entry n, code of glyph n + 1
  std::vector<unsigned short> charsetSIDs;   ///< charset format 0: entry n is that of glyph n + 1
  std::vector<FS_CFFRange> sidRanges;        ///< charset formats 1 and 2, keyed by SID or CID
  std::vector<FS_CFFRange> gidRanges;        ///< the same ranges, keyed by glyph id
  QXCommonNS::QXValue topDict;               ///< by keyword; several operands as items 1, 2, 3 ...

  /// Reads the table at `tableOffset` of `stream`. False for a short read or a form that is not
  /// supported (an empty Name or Top DICT INDEX, a charset format above 2); fields may be partly
  /// filled then. Predefined charsets leave the maps empty.
  bool readCFF(std::istream& stream, unsigned int tableOffset);

  /// The SID (in a CID-keyed font the CID) of a glyph; 0 for glyph 0 and for a glyph that the
  /// charset does not tell of.
  [[nodiscard]] unsigned short getCIDFromGID(unsigned short gid) const;
  /// The glyph of an SID or CID, or 0xFFFF. Glyph 0 stands in no charset, so CID 0 is 0xFFFF.
  [[nodiscard]] unsigned short getGIDFromCID(unsigned short cid) const;
  /// The text of a string id, of the font or of the standard strings; false for one past the end.
  bool getSIDString(unsigned short sid, std::string& out) const;

  /// What the range that holds `key` gives for it, or `missing`.
  [[nodiscard]] static unsigned short lookUpRange(const std::vector<FS_CFFRange>& ranges,
                                                  unsigned short key, unsigned short missing);

  /// The integer that the Top DICT holds under a keyword; 0 where it has none.
  [[nodiscard]] int topInteger(embed::Keyword keyword) const;

 private:
  /// The first operands of three operators: they lead to the structures, while `topDict` keeps the
  /// last ones.
  struct Places {
    std::int32_t charset = 0;
    std::int32_t encoding = 0;
    std::int32_t charStrings = 0;
  };

  bool readTopDict(std::istream& stream, std::int64_t& position, Places& places);
  void parseTopDict(const FS_CFFBytes& dict, Places& places);
  void takeRos();
  bool readStrings(std::istream& stream, std::int64_t position);
  bool readEncoding(const cff::CffTable& table, const Places& places);
  bool readCharset(const cff::CffTable& table, const Places& places);
};

namespace cff {

/// `readFDSelect` and `readFDArray` at the places that the Top DICT names.
[[nodiscard]] bool readFDSelect(const CffTable& table, const FS_CFFInfo& info,
                                std::vector<FS_FDRange>& out);
[[nodiscard]] bool readFDArray(const CffTable& table, const FS_CFFInfo& info, FontDicts& out);

}  // namespace cff
}  // namespace QXFontService_NS
