#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace qxtest {

/// An OpenType `GSUB` or `GPOS` table of scripts, features and lookups; subtables come as bytes.
/// ```
/// LayoutTableBuilder table;
/// const unsigned liga = table.feature("liga", {table.lookup(4, 0, {ligatureSubst(...)})});
/// table.script("latn", {{liga}});
/// ```
class LayoutTableBuilder {
 public:
  /// Adds a lookup, and gives its index.
  unsigned lookup(unsigned type, unsigned flag, const std::vector<std::string>& subTables);
  /// Adds a lookup of `count` subtables, up to 32,000, all of which are this one.
  unsigned repeatedLookup(unsigned type, unsigned flag, const std::string& subTable,
                          unsigned count);
  /// Adds a feature of these lookups, and gives its index.
  unsigned feature(const std::string& tag, const std::vector<unsigned>& lookups);

  using Features = std::vector<unsigned>;
  /// Adds a script with its default language system, if any, and others by tag.
  LayoutTableBuilder& script(const std::string& tag, const std::optional<Features>& byDefault,
                             const std::vector<std::pair<std::string, Features>>& languages = {});

  /// Adds a feature of one lookup to a script 'test' whose default language system has all such:
  /// what a test of a single lookup needs. Gives the lookup's index.
  unsigned onlyLookup(const std::string& tag, unsigned type, unsigned flag,
                      const std::vector<std::string>& subTables);

  [[nodiscard]] std::string str() const;

 private:
  std::vector<std::string> lookups_;
  std::vector<std::pair<std::string, std::string>> features_;
  std::vector<std::pair<std::string, std::string>> scripts_;
  Features testFeatures_;
};

/// A LangSys table.
std::string langSysTable(unsigned requiredFeature, const std::vector<unsigned>& features);
/// The subtable of an extension lookup that leads to one of `type`.
std::string extensionSubTable(unsigned type, const std::string& subTable, unsigned format = 1);

}  // namespace qxtest
