#include "embed/conforming/private_dicts.h"

#include "common/bytes/stream_read.h"
#include "common/limits.h"
#include "embed/cff/dict.h"
#include "embed/cff/index.h"
#include "embed/conforming/editable_dict.h"

namespace QXFontService_NS::embed::conforming {

using QXCommonNS::bytes::ByteView;
using QXCommonNS::bytes::ByteWriter;
using QXCommonNS::bytes::readBlock;

bool PrivateDicts::add(std::int32_t offset, std::int32_t size) {
  const auto [entry, isNew] = entries_.try_emplace({offset, size});
  return !isNew || read(offset, size, entry->second);
}

bool PrivateDicts::read(std::int32_t offset, std::int32_t size, Entry& entry) {
  if (offset < 0 || size < 0) return false;
  privateBytes_ += static_cast<std::uint32_t>(size);
  if (privateBytes_ > QXCommonNS::limits::kMostPrivateDictBytes) return false;
  const auto wanted = static_cast<std::uint64_t>(size);
  const auto data = readBlock(*table_.stream, table_.at(offset), wanted);
  if (data.size() != wanted) return false;
  EditableDict dict{ByteView(data)};
  if (const std::int32_t subrs = dict.last(cff::kOpSubrs); subrs != 0) {
    if (!readSubrs(std::int64_t{offset} + subrs, entry.subrs)) return false;
    dict.set(cff::kOpSubrs, {0});
    dict.set(cff::kOpSubrs, {static_cast<std::uint32_t>(dict.bytes().size())});
  }
  entry.dict = dict.bytes();
  return true;
}

bool PrivateDicts::readSubrs(std::int64_t offset, std::string& out) {
  FS_CFFIndexHeader header;
  if (!cff::readCFFIndexHeader(table_, offset, header) || header.dataSize() < 0) return false;
  const std::int64_t size = header.endPosition() - table_.at(offset);
  subrBytes_ += static_cast<std::uint64_t>(size);
  if (subrBytes_ > QXCommonNS::limits::kMostLocalSubrBytes) return false;
  const auto data = readBlock(*table_.stream, table_.at(offset), static_cast<std::uint64_t>(size));
  out.assign(static_cast<const char*>(static_cast<const void*>(data.data())), data.size());
  return data.size() == static_cast<std::size_t>(size);
}

void PrivateDicts::write(ByteWriter& out) {
  for (auto& [key, entry] : entries_) {
    entry.written = static_cast<std::uint32_t>(out.size());
    out.text(entry.dict).text(entry.subrs);
  }
}

PrivateDicts::Place PrivateDicts::placeOf(std::int32_t offset, std::int32_t size) const {
  const auto found = entries_.find({offset, size});
  if (found == entries_.end()) return {};
  return {static_cast<std::uint32_t>(found->second.dict.size()), found->second.written};
}

}  // namespace QXFontService_NS::embed::conforming
