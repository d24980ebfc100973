#pragma once

#include <cstdint>
#include <string>

#include "qxcommon/ptr.h"

#include "font/contract/base_font.h"

namespace qxbench {

/// A font whose names and style are read and whose tables are not; null when it does not open.
QXCommonNS::QXPtr<QXFontService_NS::FS_BaseFont> readFont(const std::string& path);

/// Reads what was left. False when that fails.
bool loadTables(QXFontService_NS::FS_BaseFont& font);

}  // namespace qxbench
