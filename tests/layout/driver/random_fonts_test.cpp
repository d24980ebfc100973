#include <gtest/gtest.h>

#include <random>

#include "layout/driver/plain_gsub.h"
#include "support/context_builder.h"
#include "support/coverage_builder.h"
#include "support/gsub_builder.h"
#include "support/layout_table_builder.h"

namespace qxtest {
namespace {

/// Writes fonts of random lookups over few glyphs, so that rules often meet. A lookup runs only
/// earlier ones, and a text is short: expansions stay small.
class RandomFont {
 public:
  explicit RandomFont(unsigned seed) : random_(seed) {}

  unsigned below(unsigned end) { return static_cast<unsigned>(random_() % end); }

  std::string gsub(unsigned lookups) {
    LayoutTableBuilder table;
    for (known_ = 0; known_ < lookups; ++known_) {
      const unsigned type = below(3) == 0 ? 1 + below(4) : 5 + below(2);
      std::vector<std::string> subTables;
      for (unsigned i = 0; i <= below(2); ++i) subTables.push_back(subTable(type));
      table.onlyLookup("test", type, below(2) * 8, subTables);
    }
    return table.str();
  }

  Ids text(unsigned longest) {
    Ids ids(below(longest + 1));
    for (int& id : ids) id = static_cast<int>(glyph());
    return ids;
  }
  std::vector<unsigned> mask() {
    std::vector<unsigned> words(below(4) == 0 ? below(12) : 0);
    for (unsigned& word : words) word = below(4) == 0 ? 1 : 0;
    return words;
  }

 private:
  unsigned glyph() { return below(4) == 0 ? 50 + below(2) : 1 + below(4); }
  std::vector<unsigned> glyphs(unsigned most) {
    std::vector<unsigned> list(below(most + 1));
    for (unsigned& each : list) each = glyph();
    return list;
  }
  std::string someCoverage() {
    std::vector<unsigned> covered;
    for (const unsigned each : {1U, 2U, 3U, 4U, 50U, 51U})
      if (below(2) == 0) covered.push_back(each);
    return coverage(covered);
  }
  std::vector<std::string> coverages(unsigned most) {
    std::vector<std::string> list(below(most + 1));
    for (std::string& each : list) each = someCoverage();
    return list;
  }
  std::string someClasses() {
    return classDefOfRanges({{1, 2, below(2)}, {3, 3 + below(2), below(2)}, {50, 51, below(2)}});
  }
  LookupRecords records() {
    LookupRecords list(below(4));
    for (auto& record : list) record = {below(4), known_ == 0 ? 99 : below(known_)};
    return list;
  }
  template <class Item, class Make>
  std::vector<Item> listOf(unsigned count, Make make) {
    std::vector<Item> items;
    for (unsigned i = 0; i < count; ++i) items.push_back(make());
    return items;
  }
  std::vector<unsigned> values(unsigned most, bool classes) {
    std::vector<unsigned> list = glyphs(most);
    if (classes)
      for (unsigned& each : list) each = below(2);
    return list;
  }
  std::vector<Rule> rules(bool classes) {
    return listOf<Rule>(below(4), [&] { return Rule{values(2, classes), records()}; });
  }
  std::vector<ChainRule> chainRules(bool classes) {
    return listOf<ChainRule>(below(4), [&] {
      return ChainRule{values(1, classes), values(2, classes), values(1, classes), records()};
    });
  }

  std::string subTable(unsigned type) {
    const std::string covered = someCoverage();
    switch (type) {
      case 1:
        return singleSubst(covered, static_cast<int>(below(3)) - 1);
      case 2:
        return multipleSubst(covered, listOf<std::vector<unsigned>>(6, [&] { return glyphs(3); }));
      case 3:
        return alternateSubst(covered, listOf<std::vector<unsigned>>(6, [&] { return glyphs(2); }));
      case 4:
        return ligatures(covered);
      case 5:
        return context(covered);
      default:
        return chainContext(covered);
    }
  }
  std::string ligatures(const std::string& covered) {
    std::string bytes = ligatureSubst(
        covered, listOf<std::vector<Ligature>>(6, [&] {
          return listOf<Ligature>(below(3), [&] { return Ligature{70 + below(2), glyphs(2)}; });
        }));
    return bytes;
  }
  std::string context(const std::string& covered) {
    switch (below(3)) {
      case 0:
        return context1(covered, listOf<std::vector<Rule>>(6, [&] { return rules(false); }));
      case 1:
        return context2(covered, someClasses(),
                        listOf<std::vector<Rule>>(2, [&] { return rules(true); }));
      default:
        return context3(coverages(3), records());
    }
  }
  std::string chainContext(const std::string& covered) {
    switch (below(3)) {
      case 0:
        return chainContext1(covered,
                             listOf<std::vector<ChainRule>>(6, [&] { return chainRules(false); }));
      case 1:
        return chainContext2(covered, someClasses(), someClasses(), someClasses(),
                             listOf<std::vector<ChainRule>>(2, [&] { return chainRules(true); }));
      default:
        return chainContext3(coverages(1), coverages(3), coverages(1), records());
    }
  }

  std::mt19937 random_;
  unsigned known_ = 0;
};

constexpr unsigned kLookups = 6;

/// Whether a chained lookup may grow an array for ever, which a plain model cannot run.
bool maySpin(const TestFont& font, unsigned index) {
  return font.gsub->lookupList.lookups[index].type == 6;
}

TEST(RandomFonts, PassesDoAsPlainVectorsDo) {
  unsigned changed = 0;
  for (unsigned seed = 0; seed < 2000; ++seed) {
    RandomFont random(seed);
    const TestFont font(random.gsub(kLookups), gdefTable(testClasses()));
    PlainGsub plain(font);
    for (unsigned index = 0; index < kLookups; ++index) {
      const unsigned type = font.gsub->lookupList.lookups[index].type;
      if (type == 1 || type == 3 || maySpin(font, index)) continue;
      const Ids text = random.text(10);
      const std::vector<unsigned> mask = random.mask();
      const Pass pass = passOver(font, static_cast<int>(index), text, mask);
      ASSERT_EQ(pass, plain.pass(index, text, mask)) << "seed " << seed << " lookup " << index;
      changed += pass.changed ? 1 : 0;
    }
  }
  EXPECT_GT(changed, 500u);
}

TEST(RandomFonts, ChainedPassesDoAsPlainVectorsDo) {
  unsigned changed = 0;
  for (unsigned seed = 0; seed < 2000; ++seed) {
    RandomFont random(seed);
    const TestFont font(random.gsub(kLookups), gdefTable(testClasses()));
    for (unsigned index = 0; index < kLookups; ++index) {
      if (!maySpin(font, index)) continue;
      const Ids text = random.text(10);
      const std::vector<unsigned> mask = random.mask();
      PlainGsub plain(font);
      const Pass wanted = plain.pass(index, text, mask);
      if (plain.gaveUp()) continue;
      const Pass pass = passOver(font, static_cast<int>(index), text, mask);
      ASSERT_EQ(pass, wanted) << "seed " << seed << " lookup " << index;
      changed += pass.changed ? 1 : 0;
    }
  }
  EXPECT_GT(changed, 200u);
}

using LangSys = QXFontService_NS::FS_LayoutTables::TTI_LangSys;
using Script = QXFontService_NS::FS_LayoutTables::TTI_Script;

std::shared_ptr<const Script> scriptOf(const std::shared_ptr<const LangSys>& byDefault) {
  auto script = std::make_shared<Script>();
  script->langSys.emplace(0, byDefault);
  return script;
}

TEST(RandomFonts, StepsDoAsPlainVectorsDo) {
  unsigned hits = 0;
  for (unsigned seed = 0; seed < 1000; ++seed) {
    RandomFont random(seed);
    TestFont font(random.gsub(kLookups), gdefTable(testClasses()));
    for (unsigned index = 0; index < kLookups; ++index) {
      if (font.gsub->lookupList.lookups[index].type < 4) continue;
      const Ids text = random.text(8);
      const auto only = std::make_shared<LangSys>();
      const std::vector<unsigned short> lookups{static_cast<unsigned short>(index)};
      only->featuresByTag = {{kTestTag, lookups}};
      font.gsub->scripts.begin()->second = scriptOf(only);
      for (int position = 0; position < static_cast<int>(text.size()); ++position) {
        const Step step = stepAt(font, text, position);
        ASSERT_EQ(step, PlainGsub(font).step(index, text, position)) << seed << " " << index;
        hits += step.result != 0 ? 1 : 0;
      }
    }
  }
  EXPECT_GT(hits, 500u);
}

}  // namespace
}  // namespace qxtest
