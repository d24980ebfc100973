#include "qxfontservice/extra_font_manager.h"

#include <memory>

#include "qxcommon/mem_stream.h"
#include "qxcommon/ptr.h"
#include "qxfontservice/error_codes.h"

#include "common/answer_or.h"
#include "font/contract/class_ids.h"
#include "font/contract/file_type_rule.h"
#include "font/contract/font_error.h"
#include "pool/registry/font_registry.h"
#include "pool/tables/extra_font_pool.h"
#include "pool/tables/global_lock.h"
#include "service/errors/font_error_text.h"

namespace QXFontService_NS {
namespace {

constexpr std::size_t kBlockSize = 8192;
constexpr int kUnnamedType = 11;  // no class has it; told like a web font where one came up

using FontPtr = QXPtr<FS_BaseFont>;

[[noreturn]] void throwFor(const QXUri& uri, FS_ERROR code) {
  throw QXError(static_cast<unsigned short>(code),
                FS_FontErrorText(code, UnicodeString()) + u'\n' + uri.getLocalPath(true),
                UnicodeString(), -1, -1, UnicodeString());
}

/// Whether the file is to tell its kind, with the type as a hint.
bool isHint(FS_FontFileType type) {
  return type == FS_FILETYPE_UNKNOWN ||
         (type >= FS_FILETYPE_HINT_BYTES && type <= FS_FILETYPE_HINT_TRUETYPE);
}

bool isWebFontContent(const UnicodeString& contentType) {
  return contentType == UnicodeString(u"application/font-woff") ||
         contentType == UnicodeString(u"font/woff");
}

/// Adds one font to a pool, step by step.
class ExtraFontReader {
 public:
  explicit ExtraFontReader(const UnicodeString& uri) : uri_(uri, QXCommonNS::URISTR_USER) {}

  [[nodiscard]] const QXUri& uri() const { return uri_; }

  void open() {
    QXUri::ContentInfo info(nullptr);
    std::istream* source = uri_.getIStream(&info, nullptr);
    if (source == nullptr) throwFor(uri_, FS_ERROR_FONTFACE_OPEN);
    stream_.getMemStreamBuf()->setSource(source, true);
    contentType_ = info.contentType;
  }

  void create(FS_FontFileType type) {
    if (type == FS_FILETYPE_UNKNOWN && isWebFontContent(contentType_)) type = FS_FILETYPE_WOFF;
    if (isHint(type)) type = fontFileTypeOf(uri_.getExtension(), type, &stream_);
    font_ = FontPtr(FS_FontRegistry::createFontObject(nullptr, uri_, type));
    if (!font_) throwFor(uri_, FS_ERROR_FONTFACE_CREATE);
  }

  void read(const UnicodeString& family, int weight, int style) {
    QXError error;
    if (!font_->readExtraFont(&error, &stream_, family, weight, style)) {
      if (error.getErrorCode() == 0) {
        FS_SetFontError(*font_, error, FS_ERROR_FONTFACE_INFORMATION, UnicodeString());
      }
      throw QXError(error);
    }
    const int count = font_->getEntryCount();
    for (int entry = 0; entry < count; ++entry) {
      if (!font_->loadFontTables(&error, entry, &stream_) && error.getErrorCode() != 0) {
        throw QXError(error);
      }
    }
  }

  [[nodiscard]] FS_BaseFont& font() const { return *font_; }

 private:
  QXUri uri_;
  QXMemStream stream_{nullptr, kBlockSize, false, true};
  UnicodeString contentType_;
  FontPtr font_;
};

/// Makes a new family name of a font that is known already searchable.
void addFamily(FS_ExtraFontPool& pool, FS_BaseFont& font, const UnicodeString& family) {
  if (!font.fontAliases().insert(family).second) return;
  font.refCount.fetch_add(1);  // dropped by addFont
  pool.addFont({&font, 0});
}

void warnOfRights(FS_BaseFont& font, QXError* error) {
  if (error == nullptr || font.getEmbedStatus(0) == FS_EMBED_ALLOWED) return;
  FS_SetFontError(*font.getExtraBaseFont(), *error, FS_ERROR_FONTFACE_UNEMBEDDABLE,
                  UnicodeString());
}

int appendFont(FS_ExtraFontPool& pool, ExtraFontReader& reader, const UnicodeString& family,
               QXError* error) {
  FS_BaseFont& font = reader.font();
  const int number = pool.append(&font, reader.uri().getText());
  font.fontAliases().insert(family);
  // A font without a wrapper has its names in its set alone, and no rights are told of it.
  if (!font.isKindOf(ID_FS_ExtraFont)) return number;
  font.refCount.fetch_add(1);  // dropped by addFont
  pool.addFont({&font, 0});
  warnOfRights(font, error);
  return number;
}

}  // namespace

FS_ExtraFontManager::FS_ExtraFontManager(const FS_ExtraFontManager* other)
    : pool_(other == nullptr ? new FS_ExtraFontPool
                             : FS_ExtraFontPool::sharedCopy(*other->pool_).release()) {}

FS_ExtraFontManager::~FS_ExtraFontManager() {
  delete pool_;
}

FS_ExtraFontManager& FS_ExtraFontManager::operator=(const FS_ExtraFontManager& other) {
  pool_ = other.pool_;  // NOLINT(bugprone-unhandled-self-assignment): borrows on purpose
  return *this;
}

FS_ExtraFonts* FS_ExtraFontManager::getExtraFonts() const {
  return pool_;
}

int FS_ExtraFontManager::getFontsCount() const {
  return static_cast<int>(pool_->fonts().size());
}

int FS_ExtraFontManager::appendExtraFont(const UnicodeString& uri, FS_FontFileType type,
                                         const UnicodeString& family, int weight, int style,
                                         QXError* error) {
  try {
    return QXCommonNS::answerOr(-1, [&] {
      FS_FontRegistry::open(nullptr, nullptr);
      const QXMutex guard(&FS_GlobalLock());
      ExtraFontReader reader(uri);
      if (error != nullptr) error->setErrorCode(0);
      const int known = pool_->find(reader.uri().getText());
      if (known >= 0) {
        addFamily(*pool_, *pool_->fonts()[static_cast<std::size_t>(known)], family);
        return known;
      }
      reader.open();
      reader.create(type);
      reader.read(family, weight, style);
      return appendFont(*pool_, reader, family, error);
    });
  } catch (const QXError& caught) {
    if (error != nullptr) *error = caught;
    return -1;
  }
}

const std::set<UnicodeString>* FS_ExtraFontManager::getExtraFontFamilies(int index) const {
  if (index < 0 || index >= getFontsCount()) return nullptr;
  return &pool_->fonts()[static_cast<std::size_t>(index)]->fontAliases();
}

FS_FontFileType FS_ExtraFontManager::getExtraFontFaceName(int index, UnicodeString* name,
                                                          int* weight, bool* italic,
                                                          int* stretch) const {
  if (name != nullptr) name->remove();
  if (weight != nullptr) *weight = 0;
  if (italic != nullptr) *italic = false;
  if (stretch != nullptr) *stretch = 0;
  if (index < 0 || index >= getFontsCount()) return FS_FILETYPE_UNKNOWN;

  const FS_BaseFont& font = *pool_->fonts()[static_cast<std::size_t>(index)];
  const FS_FontFileType type = font.getFontFileType(0);
  if (font.fontAliases().empty()) return type;
  if (type != FS_FILETYPE_WOFF && type != kUnnamedType) {
    if (name != nullptr) *name = font.getFamilyName(QXLang::LANGID_DEFAULT, 0);
    return type;
  }
  if (name != nullptr) *name = *font.fontAliases().begin();
  if (weight != nullptr) *weight = font.getFontWeight(0);
  if (italic != nullptr) *italic = font.isItalicFont(0);
  if (stretch != nullptr) *stretch = font.getFontStretch(0);
  return type;
}

}  // namespace QXFontService_NS
