#include "qxfontservice/ext/opening.h"

#include <map>
#include <set>

#include "pool/registry/font_registry.h"
#include "pool/registry/opening_watcher.h"
#include "pool/tables/global_lock.h"
#include "service/boundary.h"

namespace QXFontService_NS::ext {
namespace {

/// Counts for a host's observer.
class Counter final : public OpeningWatcher {
 public:
  void begin(OpeningObserver* observer) {
    observer_ = observer;
    progress_ = {};
  }

  void folderBegun(const FS_FontFolder& folder) override {
    progress_.folder = folder.getLocalPath(true);
    observer_->read(progress_);
  }

  void fileRead(int faces) override {
    ++progress_.files;
    progress_.faces += static_cast<std::size_t>(faces);
    observer_->read(progress_);
  }

 private:
  OpeningObserver* observer_ = nullptr;
  OpeningProgress progress_;
};

Counter theCounter;

/// Asks the registry as it stands; the neutral answer while there is none.
template <class Answer, class Function>
Answer askRegistry(Answer neutral, Function&& function) {
  return service::atBoundary(neutral, [&]() -> Answer {
    const QXMutex guard(&FS_GlobalLock());
    FS_FontRegistry* registry = FS_FontRegistry::current();
    return registry == nullptr ? neutral : function(*registry);
  });
}

QXUri folderOf(const FS_BaseFont& font) {
  return QXUri(font.fileUri().getBaseString(), QXCommonNS::URISTR_FOLDER);
}

using Counts = std::map<const FS_FontFolder*, OpenedFolder>;

/// What the pool's fonts add up to; a file that was read twice counts once.
Counts countFonts(FS_FontRegistry& registry) {
  Counts counts;
  std::set<UnicodeString> known;
  for (const FS_BaseFont* font : registry.mainPool().fonts()) {
    if (!known.insert(font->fileUri().getText()).second) continue;
    OpenedFolder& folder = counts[registry.folders().find(folderOf(*font))];
    ++folder.files;
    folder.faces += static_cast<std::size_t>(font->getEntryCount());
  }
  return counts;
}

}  // namespace

void setOpeningObserver(OpeningObserver* observer) {
  const QXMutex guard(&FS_GlobalLock());
  theCounter.begin(observer);
  opening::setWatcher(observer != nullptr ? &theCounter : nullptr);
}

QXUri openedConfiguration() {
  return askRegistry(QXUri(),
                     [](FS_FontRegistry& registry) { return registry.settings().configUri; });
}

std::vector<OpenedFolder> openedFolders() {
  return askRegistry(std::vector<OpenedFolder>(), [](FS_FontRegistry& registry) {
    Counts counts = countFonts(registry);
    std::vector<OpenedFolder> result;
    for (std::size_t i = 0; i < registry.folders().size(); ++i) {
      const FS_FontFolder& folder = registry.folders()[i];
      result.push_back(counts[&folder]);
      result.back().path = folder.getLocalPath(true);
    }
    return result;
  });
}

std::vector<OpeningError> openingErrors() {
  return askRegistry(std::vector<OpeningError>(), [](FS_FontRegistry& registry) {
    std::vector<OpeningError> result;
    for (const QXError& error : registry.errors()) {
      result.push_back({error, registry.errorFile(result.size())});
    }
    return result;
  });
}

std::vector<QXUri> unpairedType1Files() {
  return askRegistry(std::vector<QXUri>(),
                     [](FS_FontRegistry& registry) { return registry.type1Files().unpaired(); });
}

}  // namespace QXFontService_NS::ext
