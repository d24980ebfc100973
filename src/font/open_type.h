#pragma once

#include "font/true_type.h"

namespace QXFontService_NS {

/// A font file with one sfnt font whose outlines are in `CFF ` (file type 7, or 8 when the CFF is
/// CID-keyed, which shows once its tables are loaded).
class FS_OpenType : public FS_TrueType {
 public:
  static constexpr unsigned int kClassID = ID_FS_OpenType;

  FS_OpenType(const QXUri& uri, FS_FontFolder* folder);

  unsigned int getClassID() const override;
  bool isKindOf(unsigned int id) const override;
  UnicodeString getClassName() const override;

  FS_FontFileType getFontFileType(int entry) const override;
  bool isOpenType() const override;
  bool isType1OrNoCID(int entry) const override;
  bool isTrueTypeOrCID(int entry) const override;
  unsigned short getStringID(unsigned short cid, int entry) const override;
  FS_EncodingScheme getEncodingScheme(int entry) const override;

 protected:
  ~FS_OpenType() override;

 private:
  [[nodiscard]] bool isCID() const;
};

}  // namespace QXFontService_NS
