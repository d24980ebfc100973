#pragma once

#include "qxcommon/export.h"
#include "qxfontservice/log_font.h"
#include "qxfontservice/names.h"

namespace QXFontService_NS {

/// What an enumeration tells of a face: `FS_LogFont`, its full name and three numbers.
class QX_EXPORT FS_EnumLogFontEx : public FS_LogFont {
 public:
  FS_EnumLogFontEx() = default;
  /// No full name, and the three numbers 0.
  FS_EnumLogFontEx(const FS_LogFont& font) : FS_LogFont(font) {}
#ifdef _WIN32
  /// From the record of the Windows graphics interface; one leading "@" of each name is dropped.
  FS_EnumLogFontEx(const ENUMLOGFONTEXW& record);
#endif

  /// The full name of the face; empty where the font has none.
  const UnicodeString& getFullName() const {
    return fullName_;
  }
  /// The `FS_FontFileType` of the font.
  int getFontFileType() const {
    return fileType_;
  }
  /// The `FS_EMBEDSTATUS` of the face.
  int getEmbedStatus() const {
    return embedStatus_;
  }
  /// 8: found in the system's font list; 16: an EUDC font.
  int getFontFlags() const {
    return fontFlags_;
  }

  ///@{
  /// Sets what the function of the same name tells.
  void setFullName(const UnicodeString& name) {
    fullName_ = name;
  }
  void setFontFileType(int type) {
    fileType_ = type;
  }
  void setEmbedStatus(int status) {
    embedStatus_ = status;
  }
  void setFontFlags(int flags) {
    fontFlags_ = flags;
  }
  ///@}

 private:
  UnicodeString fullName_;
  int fileType_ = 0;
  int embedStatus_ = 0;
  int fontFlags_ = 0;
};

}  // namespace QXFontService_NS
