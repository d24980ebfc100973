#pragma once

#include <ft2build.h>
#include FT_FREETYPE_H

#include "qxfontservice/names.h"

#include "font/contract/font_ref.h"

namespace QXFontService_NS {

/// Facts of the whole service that a font asks for. The registry implements it and installs itself
/// under the global lock before any font exists; without it a null object has the defaults.
class FS_FontServices {
 public:
  /// Whether metrics are those of Windows (`otf-metrics-mode`); default false.
  virtual bool windowsMetrics() const = 0;
  /// A reserved switch on the leading of metrics records; default false.
  virtual bool reservedMetricsSwitch() const = 0;
  /// Whether the preferred family replaces the family; default true.
  virtual bool usePreferredFamily() const = 0;
  /// Whether a code point is an end-user-defined character; default false.
  virtual bool isEudc(int codePoint) const = 0;
  /// The EUDC font for faces without a link of their own; default none.
  virtual FS_FontRef eudcDefault(bool vertical) const = 0;
  /// The FreeType library, made at the first need, or null where that fails. Ask it with the
  /// rendering lock held. The answer lives as long as this object or a count of
  /// `contract::freeTypeLibrary()`.
  virtual FT_Library freeType() = 0;
  /// Guards opening and closing of FreeType faces; taken after the outline lock, never before it.
  virtual QXLock& renderingLock() = 0;

 protected:
  ~FS_FontServices() = default;
};

/// The installed services, or the null object; usable at any time of the process.
FS_FontServices& fontServices();

/// Installs the services; null brings the null object back. The caller keeps the object alive.
void setFontServices(FS_FontServices* services);

}  // namespace QXFontService_NS
