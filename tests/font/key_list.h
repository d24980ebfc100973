#pragma once

#include <string>
#include <vector>

#include "qxcommon/uri.h"

#include "font/answers.h"
#include "font/contract/font_key.h"
#include "font/contract/font_key_sink.h"

namespace qxtest {

/// What a font enters, a line for each call: "entry weight italic stretch: file name, or names".
class KeyList final : public QXFontService_NS::FS_FontKeySink {
 public:
  void addFileName(const QXFontService_NS::QXUri& uri, const QXFontService_NS::FS_FontRef& ref,
                   const QXFontService_NS::FS_FontKey& key) override {
    lines.push_back(head(ref, key) + " " + textOf(uri.getFileName()));
    fonts.push_back(ref.font);
  }
  void addFamilyNames(const std::set<icu::UnicodeString>& names,
                      const QXFontService_NS::FS_FontRef& ref,
                      const QXFontService_NS::FS_FontKey& key) override {
    std::string line = head(ref, key);
    for (const auto& name : names) line += " " + textOf(name) + ";";
    lines.push_back(line);
    fonts.push_back(ref.font);
  }

  std::vector<std::string> lines;
  std::vector<const QXFontService_NS::FS_BaseFont*> fonts;

 private:
  static std::string head(const QXFontService_NS::FS_FontRef& ref,
                          const QXFontService_NS::FS_FontKey& key) {
    return textOf(ref.entry) + " " + textOf(key.weight) + " " + textOf(key.italic) + " " +
           textOf(key.stretch) + ":";
  }
};

}  // namespace qxtest
