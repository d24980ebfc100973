#include "embed/cff/fd_array.h"

#include <map>
#include <utility>

#include "common/limits.h"
#include "embed/cff/dict_entries.h"

namespace QXFontService_NS::cff {

using embed::itemOf;
using embed::Keyword;
using QXCommonNS::QXValue;
using QXCommonNS::bytes::ByteView;

namespace {

/// Reads the Private DICTs of one FDArray, each distinct one once.
class PrivateReader {
 public:
  explicit PrivateReader(const CffTable& table) : table_(table) {}

  bool read(const QXValue& fontDict, QXValue& privateMap, LocalSubrs& subrs) {
    const QXValue& place = itemOf(fontDict, Keyword::kPrivate);
    const int size = FS_Operand(place, 1).getIntegerValue();
    const auto [entry, isNew] = known_.try_emplace({FS_Operand(place, 2).getIntegerValue(), size});
    if (isNew && !readNew(fontDict, size, entry->second)) return false;
    privateMap = entry->second.map;
    subrs = entry->second.subrs;
    return true;
  }

 private:
  struct Entry {
    QXValue map;
    LocalSubrs subrs;
  };

  bool readNew(const QXValue& fontDict, int size, Entry& out) {
    privateBytes_ += size > 0 ? static_cast<unsigned>(size) : 0;
    if (privateBytes_ > QXCommonNS::limits::kMostPrivateDictBytes) return false;
    if (!readLocalSubrs(table_, fontDict, out.map, out.subrs)) return false;
    for (const FS_CFFBytes& subr : stringsOf(out.subrs)) subrBytes_ += subr.size();
    return subrBytes_ <= QXCommonNS::limits::kMostLocalSubrBytes;
  }

  const CffTable& table_;
  std::map<std::pair<int, int>, Entry> known_;  // by offset and size
  std::uint64_t privateBytes_ = 0;
  std::uint64_t subrBytes_ = 0;
};

ByteView viewOf(const FS_CFFBytes& bytes) {
  return {bytes.data(), bytes.size()};
}

}  // namespace

bool readFDArray(const CffTable& table, std::int64_t fdArray, FontDicts& out) {
  out = {};
  FS_CFFIndexHeader header;
  FS_CFFStrings dicts;
  if (!readCFFIndexHeader(table, fdArray, header)) return false;
  if (!readIndexEntries(header, *table.stream, dicts)) return false;
  PrivateReader reader(table);
  for (const FS_CFFBytes& dict : dicts) {
    out.dicts.push_back(parseDict(viewOf(dict), kFontDictEntries));
    if (!reader.read(out.dicts.back(), out.privates.emplace_back(), out.subrs.emplace_back()))
      return false;
  }
  return true;
}

}  // namespace QXFontService_NS::cff
