#pragma once

#ifdef _WIN32
#include <windows.h>
#else

namespace QXFontService_NS {

/// The ten PANOSE numbers of a font, in the order of OpenType `OS/2`, panose.
struct PANOSE {
  unsigned char bFamilyType;       ///< what the other numbers mean: 2 for Latin text
  unsigned char bSerifStyle;       ///< of Latin text, as the rest
  unsigned char bWeight;           ///< from 2, very light, to 11
  unsigned char bProportion;       ///< 9: of one width
  unsigned char bContrast;         ///< of thick and thin strokes
  unsigned char bStrokeVariation;  ///< how one passes into the other
  unsigned char bArmStyle;         ///< how arms end
  unsigned char bLetterform;       ///< round or flattened, upright or oblique
  unsigned char bMidline;          ///< where the bars of capitals stand
  unsigned char bXHeight;          ///< of small letters, and what accents do to capitals
};

}  // namespace QXFontService_NS

#endif
