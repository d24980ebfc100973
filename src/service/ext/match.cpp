#include "qxfontservice/ext/match.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "font/contract/font_name_rules.h"
#include "pool/registry/font_registry.h"
#include "pool/tables/extra_font_pool.h"
#include "pool/tables/global_lock.h"

namespace QXFontService_NS::ext {
namespace {

/// Asks fonts for their keys and keeps the faces that enter one name, in the order of the list:
/// the pool itself keeps only the winners.
class KeyCollector final : public FS_FontKeySink {
 public:
  explicit KeyCollector(UnicodeString name, bool byFileName)
      : name_(std::move(name)), byFileName_(byFileName) {}

  void askAll(FS_FontPool& pool) {
    for (FS_BaseFont* font : pool.fonts()) ask(*font);
  }

  void addFileName(const QXUri& uri, const FS_FontRef& ref, const FS_FontKey& key) override {
    if (!byFileName_ || uri.isDataScheme()) return;
    if (uri.getFileName().toLower(icu::Locale::getRoot()) == name_) keep(ref, key);
  }

  void addFamilyNames(const std::set<UnicodeString>& names, const FS_FontRef& ref,
                      const FS_FontKey& key) override {
    const auto same = [this](const UnicodeString& name) {
      return normalizeFontName(name) == name_;
    };
    if (!byFileName_ && std::any_of(names.begin(), names.end(), same)) keep(ref, key);
  }

  struct Face {
    FS_FontRef ref;
    FS_FontKey key;
  };
  [[nodiscard]] const std::vector<Face>& faces() const { return faces_; }

 private:
  void ask(FS_BaseFont& font) {
    const FS_FontRef ref{&font, 0};
    if (byFileName_) {
      QXUri uri = font.fileUri();
      font.addStyleKeys(*this, ref, uri);
      uri.setExtension(nullptr);
      font.addStyleKeys(*this, ref, uri);
    } else {
      font.addNameKeys(*this, ref);
    }
  }

  void keep(const FS_FontRef& ref, const FS_FontKey& key) {
    const FS_FontKey style = makeFontKey(key.weight, key.italic != 0, key.stretch);
    const auto same = [&](const Face& face) {
      return face.ref.font == ref.font && face.ref.entry == ref.entry;
    };
    if (std::none_of(faces_.begin(), faces_.end(), same)) faces_.push_back({ref, style});
  }

  UnicodeString name_;
  bool byFileName_;
  std::vector<Face> faces_;
};

/// The styles under which aliases were configured for a name.
std::set<FS_FontKey> aliasKeys(const FontFolders& folders, const UnicodeString& name) {
  std::set<FS_FontKey> keys;
  for (std::size_t i = 0; i < folders.size(); ++i) {
    for (const auto& [file, record] : folders[i].aliases) {
      for (const FS_FontAlias& alias : record.aliases) {
        if (normalizeFontName(alias.familyName) == name) keys.insert(styleOf(alias));
      }
    }
  }
  return keys;
}

MatchFace describe(const FS_FontRef& ref) {
  const FS_BaseFont& font = *ref.font;
  MatchFace face;
  face.file = font.fileUri();
  face.entry = ref.entry;
  face.fileType = font.getFontFileType(ref.entry);
  face.family = font.getFamilyNameEx(ref.entry);
  face.postScriptName = font.getPostScriptName(QXLang::LANGID_DEFAULT, ref.entry);
  face.weight = font.getFontWeight(ref.entry);
  face.italic = font.isItalicFont(ref.entry);
  face.stretch = font.getFontStretch(ref.entry);
  return face;
}

/// Explains one hit.
class Explainer {
 public:
  Explainer(const PoolHit& hit, MatchReport& report) : hit_(hit), report_(report) {}

  void explain(const UnicodeString& name, MatchPool pool) {
    report_.pool = pool;
    report_.table = hit_.byFileName ? MatchTable::file : MatchTable::family;
    report_.key = hit_.byFileName ? UnicodeString(name).toLower(icu::Locale::getRoot())
                                  : normalizeFontName(name);
    report_.step = static_cast<MatchStep>(hit_.step);
    report_.face = describe(hit_.ref);
  }

  void tellFilled(const std::set<FS_FontKey>& own, const FS_FontKey& asked) {
    for (const auto& [key, ref] : *hit_.family) {
      if (own.count(key) != 0) continue;
      report_.filled.push_back({key.weight, key.italic != 0, describe(ref)});
      // A gap that was filled for an earlier request is met as an entry of its own.
      if (key == asked && report_.step == MatchStep::exact) report_.step = MatchStep::filled;
    }
    std::stable_sort(report_.filled.begin(), report_.filled.end(),
                     [](const FilledSlot& a, const FilledSlot& b) { return a.italic < b.italic; });
  }

  void tellLosers(const std::vector<KeyCollector::Face>& faces) {
    const auto winner = std::find_if(faces.begin(), faces.end(), [this](const auto& face) {
      return face.ref.font == hit_.ref.font && face.ref.entry == hit_.ref.entry;
    });
    if (winner == faces.end()) return;
    for (auto face = winner + 1; face != faces.end(); ++face) {
      if (face->key == winner->key) report_.losers.push_back(describe(face->ref));
    }
  }

 private:
  const PoolHit& hit_;
  MatchReport& report_;
};

std::set<FS_FontKey> keysOf(const std::vector<KeyCollector::Face>& faces) {
  std::set<FS_FontKey> keys;
  for (const KeyCollector::Face& face : faces) keys.insert(face.key);
  return keys;
}

struct Request {
  UnicodeString name;
  FS_FontKey key;
};

bool explainIn(FS_FontPool& pool, MatchPool which, const Request& request, MatchReport& report) {
  const PoolHit hit = pool.lookUp(request.name, request.key);
  if (hit.ref.font == nullptr) return false;
  Explainer explainer(hit, report);
  explainer.explain(request.name, which);
  KeyCollector collector(report.key, hit.byFileName);
  collector.askAll(pool);
  if (which == MatchPool::alias) {
    explainer.tellFilled(aliasKeys(FS_FontRegistry::current()->folders(), report.key), request.key);
  } else {
    explainer.tellFilled(keysOf(collector.faces()), request.key);
    explainer.tellLosers(collector.faces());
  }
  return true;
}

}  // namespace

bool explainMatch(const UnicodeString& family, int weight, bool italic, int stretch,
                  FS_ExtraFonts* extra, MatchReport& report) {
  report = MatchReport();
  try {
    FS_FontRegistry* registry = FS_FontRegistry::open(nullptr, nullptr);
    const QXMutex guard(&FS_GlobalLock());
    const Request request{family, makeFontKey(weight, italic, stretch)};
    return (extra != nullptr && explainIn(*extra, MatchPool::extra, request, report)) ||
           explainIn(registry->aliasPool(), MatchPool::alias, request, report) ||
           explainIn(registry->mainPool(), MatchPool::main, request, report);
  } catch (const QXError&) {
    return false;
  }
}

}  // namespace QXFontService_NS::ext
