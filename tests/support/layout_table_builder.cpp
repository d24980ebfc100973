#include "support/layout_table_builder.h"

#include "support/offset_table.h"

namespace qxtest {
namespace {

std::string taggedList(const std::vector<std::pair<std::string, std::string>>& entries) {
  OffsetTable table;
  table.u16(static_cast<unsigned>(entries.size()));
  for (const auto& [tag, bytes] : entries) table.tag(tag).offset(bytes);
  return table.str();
}

}  // namespace

unsigned LayoutTableBuilder::lookup(unsigned type, unsigned flag,
                                    const std::vector<std::string>& subTables) {
  lookups_.push_back(OffsetTable().u16(type).u16(flag).countedOffsets(subTables).str());
  return static_cast<unsigned>(lookups_.size() - 1);
}

unsigned LayoutTableBuilder::repeatedLookup(unsigned type, unsigned flag,
                                            const std::string& subTable, unsigned count) {
  const std::vector<unsigned> offsets(count, 6 + 2 * count);
  lookups_.push_back(OffsetTable().u16(type).u16(flag).u16(count).u16s(offsets).str() + subTable);
  return static_cast<unsigned>(lookups_.size() - 1);
}

unsigned LayoutTableBuilder::feature(const std::string& tag, const std::vector<unsigned>& lookups) {
  OffsetTable table;
  table.u16(0).u16(static_cast<unsigned>(lookups.size())).u16s(lookups);
  features_.emplace_back(tag, table.str());
  return static_cast<unsigned>(features_.size() - 1);
}

LayoutTableBuilder& LayoutTableBuilder::script(
    const std::string& tag, const std::optional<Features>& byDefault,
    const std::vector<std::pair<std::string, Features>>& languages) {
  OffsetTable table;
  table.offset(byDefault ? langSysTable(0xFFFF, *byDefault) : std::string());
  table.u16(static_cast<unsigned>(languages.size()));
  for (const auto& [language, features] : languages)
    table.tag(language).offset(langSysTable(0xFFFF, features));
  scripts_.emplace_back(tag, table.str());
  return *this;
}

unsigned LayoutTableBuilder::onlyLookup(const std::string& tag, unsigned type, unsigned flag,
                                        const std::vector<std::string>& subTables) {
  const unsigned index = lookup(type, flag, subTables);
  testFeatures_.push_back(feature(tag, {index}));
  return index;
}

std::string LayoutTableBuilder::str() const {
  LayoutTableBuilder whole = *this;
  if (!testFeatures_.empty()) whole.script("test", testFeatures_);
  OffsetTable table;
  table.u32(0x00010000);
  table.offset(taggedList(whole.scripts_)).offset(taggedList(features_));
  table.offset(OffsetTable().countedOffsets(lookups_).str());
  return table.str();
}

std::string langSysTable(unsigned requiredFeature, const std::vector<unsigned>& features) {
  OffsetTable table;
  table.u16(0).u16(requiredFeature).u16(static_cast<unsigned>(features.size())).u16s(features);
  return table.str();
}

std::string extensionSubTable(unsigned type, const std::string& subTable, unsigned format) {
  return OffsetTable().u16(format).u16(type).offset32(subTable).str();
}

}  // namespace qxtest
