#pragma once

#include "qxfontservice/service.h"

#include "pool/registry/font_registry.h"

namespace QXFontService_NS {

/// A host's callback with what it wants back.
struct EnumReceiver {
  FS_EnumFontCallback callback;
  void* user;
};

/// Walks a document's fonts, the aliases and the service's fonts, in this order, under the global
/// lock. The first non-zero result of the callback ends the walk and is the answer; else 0.
int enumerateFonts(FS_FontRegistry& registry, const UnicodeString& family,
                   const EnumReceiver& receiver, FS_ExtraFontManager* extra);

}  // namespace QXFontService_NS
