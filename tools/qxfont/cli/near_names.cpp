#include "qxfont/cli/near_names.h"

#include <algorithm>
#include <numeric>
#include <set>
#include <utility>

#include "qxfont/cli/text.h"

namespace qxfont {
namespace {

constexpr std::size_t kMost = 3;
// The effort grows with the square of the length.
constexpr int kLongestName = 200;

using Names = std::set<icu::UnicodeString>;

int collectName(fs::FS_FontResourceType, const fs::FS_EnumLogFontEx* font,
                const fs::FS_NewTextMetricEx*, void* names) {
  static_cast<Names*>(names)->insert(font->getFaceName());
  static_cast<Names*>(names)->insert(font->getFullName());
  return 0;
}

}  // namespace

int editDistance(const icu::UnicodeString& a, const icu::UnicodeString& b) {
  const icu::UnicodeString first = icu::UnicodeString(a).foldCase();
  const icu::UnicodeString second = icu::UnicodeString(b).foldCase();
  std::vector<int> row(static_cast<std::size_t>(second.length()) + 1);
  std::iota(row.begin(), row.end(), 0);
  for (int i = 0; i < first.length(); ++i) {
    int diagonal = std::exchange(row[0], i + 1);
    for (std::size_t j = 1; j < row.size(); ++j) {
      const bool same = first.charAt(i) == second.charAt(static_cast<int>(j) - 1);
      const int change = diagonal + (same ? 0 : 1);
      diagonal = row[j];
      row[j] = std::min({change, row[j] + 1, row[j - 1] + 1});
    }
  }
  return row.back();
}

std::vector<std::string> nearNames(const std::vector<icu::UnicodeString>& names,
                                   const icu::UnicodeString& wanted) {
  const icu::UnicodeString folded = icu::UnicodeString(wanted).foldCase();
  std::vector<std::pair<int, std::string>> ranked;
  for (const icu::UnicodeString& known : names) {
    const bool holds = icu::UnicodeString(known).foldCase().indexOf(folded) >= 0;
    const int distance = holds ? 1 : editDistance(wanted, known);
    if (distance <= 2 + wanted.length() / 4) ranked.emplace_back(distance, utf8(known));
  }
  std::sort(ranked.begin(), ranked.end());
  std::vector<std::string> best;
  for (std::size_t i = 0; i < ranked.size() && i < kMost; ++i) best.push_back(ranked[i].second);
  return best;
}

std::vector<std::string> nearNames(Service& service, const std::string& name) {
  Names names;
  fs::FS_EnumFontFamilies(icu::UnicodeString(), collectName, &names, &service.documentManager(), 0);
  icu::UnicodeString wanted = unicode(name);
  if (wanted.startsWith(u"@")) wanted.remove(0, 1);
  names.erase(icu::UnicodeString());
  if (wanted.isEmpty() || wanted.length() > kLongestName) return {};
  return nearNames(std::vector<icu::UnicodeString>(names.begin(), names.end()), wanted);
}

}  // namespace qxfont
