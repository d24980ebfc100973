#include "qxfontservice/enum_log_font_ex.h"
#include "qxfontservice/log_font.h"
#include "qxfontservice/new_text_metric_ex.h"

namespace QXFontService_NS {
namespace {

// The graphics interface marks vertical writing by an "@" before a name.
template <std::size_t N>
UnicodeString faceNameOf(const wchar_t (&text)[N]) {
  std::size_t length = 0;
  while (length < N && text[length] != 0) ++length;
  const std::size_t start = length > 0 && text[0] == L'@' ? 1 : 0;
  return UnicodeString(text + start, static_cast<int32_t>(length - start));
}

}  // namespace

FS_LogFont::FS_LogFont(const LOGFONTW& record)
    : weight_(record.lfWeight),
      italic_(record.lfItalic != 0),
      faceName_(faceNameOf(record.lfFaceName)) {}

FS_EnumLogFontEx::FS_EnumLogFontEx(const ENUMLOGFONTEXW& record) : FS_LogFont(record.elfLogFont) {
  wchar_t name[LF_FULLFACESIZE];
  for (std::size_t i = 0; i < LF_FULLFACESIZE; ++i)
    name[i] = static_cast<wchar_t>(record.elfFullName[i]);
  fullName_ = faceNameOf(name);
}

FS_NewTextMetricEx::FS_NewTextMetricEx(const NEWTEXTMETRICEXW& record)
    : ascent_(static_cast<float>(record.ntmTm.tmAscent)),
      descent_(static_cast<float>(record.ntmTm.tmDescent)),
      internalLeadingA_(static_cast<float>(record.ntmTm.tmInternalLeading) * 0.5F),
      internalLeadingD_(internalLeadingA_),
      aveCharWidth_(static_cast<float>(record.ntmTm.tmAveCharWidth)),
      maxCharWidth_(static_cast<float>(record.ntmTm.tmMaxCharWidth)),
      pitchAndFamily_(static_cast<unsigned char>(record.ntmTm.tmPitchAndFamily)) {
  const FONTSIGNATURE& signature = record.ntmFontSig;
  setUnicodeSubsetBits(signature.fsUsb[0], signature.fsUsb[1], signature.fsUsb[2],
                       signature.fsUsb[3]);
  setCodePageBits(signature.fsCsb[0], signature.fsCsb[1]);
}

}  // namespace QXFontService_NS
