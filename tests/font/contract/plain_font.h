#pragma once

#include "font/contract/base_font.h"

namespace qxtest {

/// A font object of the contract alone: what a class must give, and nothing more.
class PlainFont : public QXFontService_NS::FS_BaseFont {
 public:
  explicit PlainFont(const QXFontService_NS::QXUri& uri = {},
                     QXFontService_NS::FS_FontFolder* folder = nullptr)
      : FS_BaseFont(uri, folder) {}

  QXFontService_NS::FS_FontFileType getFontFileType(int entry) const override {
    return static_cast<QXFontService_NS::FS_FontFileType>(entry);
  }
  bool isType1Font() const override { return false; }
  bool isTrueTypeFont() const override { return false; }
  bool isType1OrNoCID(int) const override { return false; }
  bool isTrueTypeOrCID(int) const override { return false; }
  bool readFont(QXFontService_NS::QXError*, std::istream*) override { return ++reads > 0; }

  int reads = 0;
};

}  // namespace qxtest
