#include "layout/table/lookup_list.h"

#include <optional>

#include "layout/guard/limits.h"
#include "layout/table/graph_reader.h"
#include "layout/table/sub_table_readers.h"

namespace QXFontService_NS::layout {
namespace {

/// In what the lookup lists of the two tables differ.
struct TableRules {
  SubTableReader (*readerOf)(unsigned type);
  unsigned extensionType;
  bool testsExtensionFormat;
  /// Whether a lookup of extensions takes the type that they name. Drivers of `GSUB` choose by the
  /// lookup's type; those of `GPOS` never look at it.
  bool takesExtendedType;
};

constexpr TableRules kGSUB{gsubSubTableReader, 7, false, true};
constexpr TableRules kGPOS{gposSubTableReader, 9, true, false};

/// A subtable on the way through extensions.
struct Target {
  unsigned type;
  std::uint64_t at;
};

class LookupReader {
 public:
  LookupReader(GraphReader& reader, const TableRules& rules) : reader_(reader), rules_(rules) {}

  TTI_Lookup read(std::uint64_t at) {
    TTI_Lookup lookup;
    const unsigned type = reader_.u16(at);
    lookup.flag = reader_.u16(at + 2);
    const std::size_t count = reader_.countThatFits(at + 6, reader_.u16(at + 4), 2);
    std::optional<unsigned> extendedType;
    for (std::size_t i = 0; i < count && reader_.charge(sizeof(SubTablePtr)); ++i) {
      const std::uint64_t subTable = at + reader_.u16(at + 6 + 2 * i);
      lookup.subTables.push_back(readSubTable({type, subTable}, extendedType));
    }
    const bool taken = rules_.takesExtendedType && extendedType.value_or(7) != 7;
    lookup.type = taken ? *extendedType : type;
    setStarts(lookup);
    return lookup;
  }

 private:
  /// `extendedType` becomes the type that the last extension on the way names.
  SubTablePtr readSubTable(Target target, std::optional<unsigned>& extendedType) {
    for (int hops = 0; target.type == rules_.extensionType; ++hops) {
      if (rules_.testsExtensionFormat && reader_.u16(target.at) != 1) return nullptr;
      const Target next{reader_.u16(target.at + 2), target.at + reader_.u32(target.at + 4)};
      extendedType = next.type;
      if (next.type == rules_.extensionType && !leadsOn(target, next, hops)) return nullptr;
      target = next;
    }
    const SubTableReader reader = rules_.readerOf(target.type);
    return reader == nullptr ? nullptr : readShared(target, reader);
  }

  /// Extensions of extensions are followed while they lead forward: a ring would have no end.
  bool leadsOn(const Target& from, const Target& to, int hops) const {
    constexpr unsigned kExtensionSize = 8;
    return to.at >= from.at + kExtensionSize && to.at < reader_.bytes().size() &&
           hops < kMostExtensionHops;
  }

  SubTablePtr readShared(const Target& target, SubTableReader reader) {
    constexpr std::size_t kObject = 192;
    return reader_.shared<TTI_SubTable>(GraphReader::kSubTable + target.type, target.at,
                                        [&]() -> SubTablePtr {
                                          if (!reader_.charge(kObject)) return nullptr;
                                          SubTablePtr subTable = reader(reader_, target.at);
                                          return reader_.spent() ? nullptr : subTable;
                                        });
  }

  void setStarts(TTI_Lookup& lookup) {
    for (const SubTablePtr& subTable : lookup.subTables) {
      if (!subTable) continue;
      if (!reader_.chargeStartSteps(1 + subTable->stepsToAddStarts()))
        return lookup.starts.addAll();
      subTable->addStartsTo(lookup.starts);
    }
    if (!reader_.charge(lookup.starts.memory())) lookup.starts.addAll();
  }

  GraphReader& reader_;
  const TableRules& rules_;
};

bool readLookupList(TTI_LookupList& list, GraphReader& reader, unsigned offset,
                    const TableRules& rules) {
  LookupReader lookups(reader, rules);
  const std::size_t count = reader.countThatFits(offset + 2U, reader.u16(offset), 2);
  list.lookups.reserve(count);
  for (std::size_t i = 0; i < count; ++i)
    list.lookups.push_back(lookups.read(offset + reader.u16(offset + 2U + 2 * i)));
  return true;
}

}  // namespace

bool readGSUBLookupList(TTI_LookupList& list, GraphReader& reader, unsigned offset) {
  return readLookupList(list, reader, offset, kGSUB);
}

bool readGPOSLookupList(TTI_LookupList& list, GraphReader& reader, unsigned offset) {
  return readLookupList(list, reader, offset, kGPOS);
}

}  // namespace QXFontService_NS::layout
