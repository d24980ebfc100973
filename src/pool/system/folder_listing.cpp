#include "pool/system/folder_listing.h"

#include <algorithm>
#include <string>
#include <utility>

#include "common/text/root_case.h"

namespace QXFontService_NS {
namespace {

struct SortedEntry {
  UnicodeString upper;
  ListedEntry entry;
};

SortedEntry prepared(const QXCommonNS::FolderEntry& entry) {
  const UnicodeString name = UnicodeString::fromUTF8(entry.name);
  return {QXCommonNS::upperCase(name), {fileNameOf(name), entry.kind, entry.hidden, entry.system}};
}

bool comesFirst(const SortedEntry* a, const SortedEntry* b) {
  const auto order = a->upper.compare(b->upper);
  return order != 0 ? order < 0 : a->entry.name.name < b->entry.name.name;
}

/// Entries are large, so that their places are sorted.
std::vector<SortedEntry*> inOrder(std::vector<SortedEntry>& entries) {
  std::vector<SortedEntry*> places;
  places.reserve(entries.size());
  for (SortedEntry& entry : entries) places.push_back(&entry);
  std::sort(places.begin(), places.end(), comesFirst);
  return places;
}

}  // namespace

UnicodeString ListedEntry::extension() const {
  const int point = name.lowerName.lastIndexOf(u'.');
  return point < 0 ? UnicodeString() : UnicodeString(name.lowerName, point);
}

FS_FontFileName fileNameOf(const UnicodeString& name) {
  return makeFontFileName(name);
}

std::vector<ListedEntry> listSorted(const FS_FontFolder& folder) {
  std::string path;
  std::vector<QXCommonNS::FolderEntry> entries;
  if (!QXCommonNS::platform().listFolder(folder.getLocalPath(false).toUTF8String(path), entries)) {
    return {};
  }
  std::vector<SortedEntry> unsorted;
  unsorted.reserve(entries.size());
  for (const QXCommonNS::FolderEntry& entry : entries) {
    if (entry.name != "." && entry.name != "..") unsorted.push_back(prepared(entry));
  }
  std::vector<ListedEntry> listed;
  listed.reserve(unsorted.size());
  for (SortedEntry* entry : inOrder(unsorted)) listed.push_back(std::move(entry->entry));
  return listed;
}

}  // namespace QXFontService_NS
