#pragma once

#ifdef _WIN32
#include <windows.h>
#else

namespace QXFontService_NS {

/// The ten PANOSE numbers of a font, in the order of OpenType `OS/2`, panose.
struct PANOSE {
  unsigned char bFamilyType;
  unsigned char bSerifStyle;
  unsigned char bWeight;
  unsigned char bProportion;
  unsigned char bContrast;
  unsigned char bStrokeVariation;
  unsigned char bArmStyle;
  unsigned char bLetterform;
  unsigned char bMidline;
  unsigned char bXHeight;
};

}  // namespace QXFontService_NS

#endif
