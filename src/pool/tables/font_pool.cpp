#include "pool/tables/font_pool.h"

#include <algorithm>
#include <string>

#include "common/text/root_case.h"
#include "font/contract/font_name_rules.h"
#include "pool/tables/global_lock.h"

namespace QXFontService_NS {
namespace {

/// A style as tables hold it: 0 stands for the normal weight and stretch.
FS_FontKey normalized(const FS_FontKey& key) {
  return makeFontKey(key.weight, key.italic != 0, key.stretch);
}

/// The PostScript name of a font, or its family where that name says nothing.
UnicodeString nameOfRecord(const FS_BaseFont& font) {
  UnicodeString name = font.getPostScriptName(QXLang::LANGID_DEFAULT, 0);
  if (name == UnicodeString(u"00")) name = font.getFamilyName(QXLang::LANGID_DEFAULT, 0);
  return name;
}

/// Only where the table doubles: many small folders would have it made anew for each.
void makeRoom(FS_FontPool::NameTable& table, std::size_t more) {
  const std::size_t wanted = table.size() + more;
  if (more > table.size() && wanted > table.bucket_count()) table.reserve(wanted);
}

UnicodeString digits(int number) {
  return UnicodeString::fromUTF8(std::to_string(number));
}

}  // namespace

FS_FontPool::~FS_FontPool() {
  clear();
}

void FS_FontPool::clear() {
  fileTable_.clear();
  familyTable_.clear();
  uriTable_.clear();
  for (FS_BaseFont* font : fonts_) font->release();
  fonts_.clear();
}

void FS_FontPool::keepFont(FS_BaseFont* font) {
  fonts_.push_back(font);
  font->refCount.fetch_add(1);
}

void FS_FontPool::expectFonts(std::size_t count) {
  constexpr std::size_t kKeysOfAFont = 2;
  constexpr std::size_t kMostFonts = 4096;
  const std::size_t keys = kKeysOfAFont * std::min(count, kMostFonts);
  makeRoom(fileTable_, keys);
  makeRoom(familyTable_, keys);
}

void FS_FontPool::addFont(const FS_FontRef& ref) {
  QXUri uri = ref.font->fileUri();
  ref.font->addStyleKeys(*this, ref, uri);
  const UnicodeString extension = uri.setExtension(nullptr);
  if (!extension.isEmpty()) ref.font->addStyleKeys(*this, ref, uri);
  ref.font->addNameKeys(*this, ref);
  ref.font->release();
}

void FS_FontPool::addFontUnique(FS_BaseFont* font, const UnicodeString& prefix) {
  const QXMutex guard(&FS_GlobalLock());
  const UnicodeString base = prefix + nameOfRecord(*font);
  UnicodeString name = base;
  for (int counter = 0; familyTable_.count(normalizeFontName(name)) != 0; ++counter) {
    name = base + digits(counter);
  }
  font->setPostScriptName(name);
  addFamilyName(
      name, FS_FontRef{font, 0},
      makeFontKey(font->getFontWeight(0), font->isItalicFont(0), font->getFontStretch(0)));
}

FS_FontRef FS_FontPool::findFont(const UnicodeString& name, const FS_FontKey& key) {
  return lookUp(name, key).ref;
}

PoolHit FS_FontPool::lookUp(const UnicodeString& name, const FS_FontKey& key) {
  const QXMutex guard(&FS_GlobalLock());
  PoolHit hit;
  if (!findFamily(name, hit.family, hit.byFileName)) return hit;
  hit.ref = matchFont(*hit.family, key, &hit.step);
  return hit;
}

bool FS_FontPool::findFamily(const UnicodeString& name, FS_FontFamily*& out) {
  bool byFileName = false;
  return findFamily(name, out, byFileName);
}

bool FS_FontPool::findFamily(const UnicodeString& name, FS_FontFamily*& out, bool& byFileName) {
  auto found = familyTable_.find(normalizeFontName(name));
  if (found == familyTable_.end()) {
    if (fileTable_.empty()) return false;
    found = fileTable_.find(QXCommonNS::lowerCase(name));
    if (found == fileTable_.end()) return false;
    byFileName = true;
  }
  out = &found->second;
  return true;
}

void FS_FontPool::addFileName(const QXUri& uri, const FS_FontRef& ref, const FS_FontKey& key) {
  if (uri.isEmpty() || uri.isDataScheme()) return;
  const UnicodeString name = QXCommonNS::lowerCase(uri.getFileName());
  if (name.isEmpty()) return;
  fileTable_[name].insert({normalized(key), ref});
}

void FS_FontPool::addFamilyNames(const std::set<UnicodeString>& names, const FS_FontRef& ref,
                                 const FS_FontKey& key) {
  for (const UnicodeString& name : names) addFamilyName(name, ref, key);
}

void FS_FontPool::addFamilyName(const UnicodeString& name, const FS_FontRef& ref,
                                const FS_FontKey& key) {
  const UnicodeString normal = normalizeFontName(name);
  if (normal.isEmpty()) return;
  familyTable_[normal].insert({normalized(key), ref});
}

}  // namespace QXFontService_NS
