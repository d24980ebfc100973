#pragma once

#include "type1/type1_printer.h"

namespace QXFontService_NS {

/// A Type 1 font program in segments (file type 2).
class FS_Type1PFB final : public FS_Type1Printer {
 public:
  static constexpr unsigned int kClassID = ID_FS_Type1PFB;

  using FS_Type1Printer::FS_Type1Printer;

  unsigned int getClassID() const override;
  bool isKindOf(unsigned int id) const override;
  UnicodeString getClassName() const override;
  FS_FontFileType getFontFileType(int entry) const override;
  int getFileKind() const override;
  bool writeEmbedStream(const char* codes, int count, QXMemStream& stream, int& length1,
                        int& length2, int& length3, const Type1CMapArray* pageMap) override;

 protected:
  ~FS_Type1PFB() override;
  bool answerWithoutGlyphs() const override;
  bool readHeader(QXError* error, std::istream& stream) override;
};

}  // namespace QXFontService_NS
