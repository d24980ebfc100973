#include "layout/table/script_list.h"

#include <algorithm>

#include "layout/guard/limits.h"
#include "layout/guard/spent_budgets.h"
#include "layout/table/graph_reader.h"
#include "layout/table/layout_table.h"

namespace QXFontService_NS {

FS_LayoutTables::TTI_LangSys::Features FS_LayoutTables::TTI_LangSys::featuresOf(
    unsigned int tag) const {
  const auto first =
      std::lower_bound(featuresByTag.begin(), featuresByTag.end(), tag,
                       [](const auto& entry, unsigned t) { return entry.first < t; });
  const auto last = std::find_if(first, featuresByTag.end(),
                                 [tag](const auto& entry) { return entry.first != tag; });
  return {first, last};
}

namespace layout {
namespace {

/// Gathers the entries of a language system, as long as it may grow.
class LangSysFiller {
 public:
  LangSysFiller(TTI_LangSys& langSys, GraphReader& reader) : langSys_(langSys), reader_(reader) {}

  /// Counts an index that names no feature: it takes time, if no place. False once the system is
  /// full.
  bool passOver() { return mayGrow(); }
  /// Enters a feature with its lookups, or as many as may still be. A lookup index is entered as
  /// it stands, whether or not there is such a lookup. False once the system is full.
  bool add(const TTI_Feature& feature) {
    if (!mayGrow() || !reader_.charge(sizeof(langSys_.featuresByTag[0]))) return false;
    langSys_.featuresByTag.emplace_back(feature.tag, feature.lookups);
    for (const unsigned short lookup : feature.lookups) {
      if (!mayGrow()) return false;
      langSys_.lookupsInOrder.emplace_back(feature.tag, lookup);
    }
    return true;
  }

 private:
  bool mayGrow() {
    if (left_ == 0) noteSpent(spentBudgets().langSys);
    return left_-- > 0 && reader_.chargeLangSysEntry();
  }

  TTI_LangSys& langSys_;
  GraphReader& reader_;
  std::int64_t left_ = kMostLangSysEntries;
};

template <class Entries, class Less>
void sortStably(Entries& entries, Less less) {
  if (!std::is_sorted(entries.begin(), entries.end(), less))
    std::stable_sort(entries.begin(), entries.end(), less);
}

void sortEntries(TTI_LangSys& langSys) {
  sortStably(langSys.lookupsInOrder,
             [](const auto& a, const auto& b) { return a.second < b.second; });
  sortStably(langSys.featuresByTag, [](const auto& a, const auto& b) { return a.first < b.first; });
}

/// Reads scripts and their language systems, which resolve into a feature list read before.
class ScriptReader {
 public:
  ScriptReader(GraphReader& reader, const TTI_FeatureList& features)
      : reader_(reader), features_(features.features) {}

  std::shared_ptr<const TTI_Script> script(std::uint64_t at) {
    return reader_.shared<TTI_Script>(GraphReader::kScript, at, [&] { return readScript(at); });
  }

 private:
  static constexpr std::size_t kMapEntry = 64;

  std::shared_ptr<const TTI_Script> readScript(std::uint64_t at) {
    auto script = std::make_shared<TTI_Script>();
    if (const unsigned byDefault = reader_.u16(at); byDefault != 0)
      enter(*script, 0, at + byDefault);
    const std::size_t count = reader_.countThatFits(at + 4, reader_.u16(at + 2), 6);
    for (std::size_t i = 0; i < count && !reader_.spent(); ++i) {
      const std::uint64_t record = at + 4 + 6 * i;
      enter(*script, reader_.u32(record), at + reader_.u16(record + 4));
    }
    return script;
  }

  /// Charged also where the tag is there already: scripts that overlap could otherwise name one
  /// language billions of times.
  void enter(TTI_Script& script, unsigned tag, std::uint64_t at) {
    if (!reader_.charge(kMapEntry) || script.langSys.contains(tag)) return;
    script.langSys.emplace(tag, langSys(at));
  }

  std::shared_ptr<const TTI_LangSys> langSys(std::uint64_t at) {
    return reader_.shared<TTI_LangSys>(GraphReader::kLangSys, at, [&] { return readLangSys(at); });
  }

  std::shared_ptr<const TTI_LangSys> readLangSys(std::uint64_t at) {
    auto langSys = std::make_shared<TTI_LangSys>();
    langSys->requiredFeature = reader_.u16(at + 2);
    langSys->featureCount = reader_.u16(at + 4);
    LangSysFiller filler(*langSys, reader_);
    const std::size_t count = reader_.countThatFits(at + 6, langSys->featureCount, 2);
    for (std::size_t i = 0; i < count; ++i) {
      const unsigned index = reader_.u16(at + 6 + 2 * i);
      if (!(index < features_.size() ? filler.add(features_[index]) : filler.passOver())) break;
    }
    sortEntries(*langSys);
    return langSys;
  }

  GraphReader& reader_;
  const std::vector<TTI_Feature>& features_;
};

}  // namespace

bool readScriptList(TTI_LayoutTable& table, GraphReader& reader, unsigned offset) {
  ScriptReader scripts(reader, table.featureList);
  const std::size_t count = reader.countThatFits(offset + 2U, reader.u16(offset), 6);
  for (std::size_t i = 0; i < count; ++i) {
    const std::uint64_t record = offset + 2U + 6 * i;
    const unsigned tag = reader.u32(record);
    if (!table.scripts.contains(tag))
      table.scripts.emplace(tag, scripts.script(offset + reader.u16(record + 4)));
  }
  return true;
}

}  // namespace layout
}  // namespace QXFontService_NS
