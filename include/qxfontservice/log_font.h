#pragma once

#include "qxcommon/export.h"
#include "qxfontservice/names.h"

#ifdef _WIN32
#include <windows.h>
#endif

namespace QXFontService_NS {

/// A request or a description of a face: weight, italic flag, face name.
class QX_EXPORT FS_LogFont {
 public:
  /// Weight 400, upright, no name.
  FS_LogFont() = default;
#ifdef _WIN32
  /// From the record of the Windows graphics interface; one leading "@" of the name is dropped.
  FS_LogFont(const LOGFONTW& record);
#endif

  /// Weight on the scale of OpenType usWeightClass.
  int getWeight() const {
    return weight_;
  }
  /// Whether the face is slanted, italic or oblique.
  bool isItalic() const {
    return italic_;
  }
  /// The family name; lives as long as this record.
  const UnicodeString& getFaceName() const {
    return faceName_;
  }

  ///@{
  /// Sets what the function of the same name tells; nothing is tested.
  void setWeight(int weight) {
    weight_ = weight;
  }
  void setItalic(bool italic) {
    italic_ = italic;
  }
  void setFaceName(const UnicodeString& name) {
    faceName_ = name;
  }
  ///@}

  /// Order by face name in code units (case counts), then weight, then upright before italic.
  bool operator<(const FS_LogFont& other) const {
    const int names = faceName_.compare(other.faceName_);
    if (names != 0) return names < 0;
    if (weight_ != other.weight_) return weight_ < other.weight_;
    return !italic_ && other.italic_;
  }

 private:
  int weight_ = 400;
  bool italic_ = false;
  UnicodeString faceName_;
};

}  // namespace QXFontService_NS
