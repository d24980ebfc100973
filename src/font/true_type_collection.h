#pragma once

#include "font/sfnt_collection.h"

namespace QXFontService_NS {

/// A TrueType collection (file type 6, OpenType `ttcf`): several fonts with TrueType outlines in
/// one file, which may share tables. Collections of fonts with `CFF ` alone are not read.
class FS_TrueTypeCollection final : public SfntCollection {
 public:
  static constexpr unsigned int kClassID = ID_FS_TrueTypeCollection;

  FS_TrueTypeCollection(const QXUri& uri, FS_FontFolder* folder);

  unsigned int getClassID() const override;
  bool isKindOf(unsigned int id) const override;
  UnicodeString getClassName() const override;

  FS_FontFileType getFontFileType(int entry) const override;
  /// Reads the members in the order of the header. A collection of which one member cannot be read
  /// is dropped whole, with that member's report.
  bool readFont(QXError* error, std::istream* stream) override;

 private:
  ~FS_TrueTypeCollection() override;
};

}  // namespace QXFontService_NS
