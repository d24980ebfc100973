#include <ft2build.h>

#include <algorithm>
#include <array>
#include <memory>
#include <string_view>
#include FT_FONT_FORMATS_H

#include "qxcommon/error.h"
#include "qxcommon/lock.h"
#include "qxfontservice/error_codes.h"

#include "font/contract/font_error.h"
#include "font/contract/outline_lock.h"
#include "type1/program/program_parts.h"
#include "type1/type1_printer.h"

// How a font program has its glyphs read by FreeType.

namespace QXFontService_NS {
namespace {

constexpr int kMostCodes = 65536;  // more than any Type 1 font has: FreeType may see another kind
constexpr std::size_t kLongestName = 64;

std::string glyphName(FT_Face face, unsigned int glyph) {
  std::array<char, kLongestName> name{};
  if (FT_Get_Glyph_Name(face, glyph, name.data(), static_cast<FT_UInt>(name.size())) != 0)
    return {};
  return name.data();
}

}  // namespace

bool FS_Type1Printer::createFont(QXError* error) {
  QXMutex guard(&FS_OutlineLock());
  FT_Face opened = getFreeTypeFace(0);
  if (opened == nullptr) {
    reportFontError(*this, error, FS_ERROR_FONT_INFORMATION, {});
    return false;
  }
  if (opened->num_glyphs <= 0) {
    reportFontError(*this, error, FS_ERROR_FONT_FILE, u"No glyphs");
    return answerWithoutGlyphs();
  }
  readGlyphs(opened);
  return true;
}

/// The codes are those of the program's own encoding where the face has it, else characters.
void FS_Type1Printer::readGlyphs(FT_Face face) {
  records_.resize(static_cast<std::size_t>(std::min<FT_Long>(face->num_glyphs, kMostCodes)));
  work_ = workOf(face);
  const bool custom = FT_Select_Charmap(face, FT_ENCODING_ADOBE_CUSTOM) == 0;
  FT_UInt glyph = 0;
  FT_ULong code = FT_Get_First_Char(face, &glyph);
  for (int count = 0; glyph != 0 && count < kMostCodes; ++count) {
    if (custom && code <= 0xFFFF) {
      const std::string name = glyphName(face, glyph);
      if (!name.empty()) encodingMap_.emplace(static_cast<unsigned short>(code), name);
    }
    readGlyph(face, static_cast<int>(code), glyph);
    code = FT_Get_Next_Char(face, code, &glyph);
  }
  work_.reset();
}

/// What FreeType's Type 1 reader will have to do; other readers have their own bounds.
std::optional<type1::CharStringWork> FS_Type1Printer::workOf(FT_Face face) const {
  if (FT_Get_Font_Format(face) != std::string_view("Type 1")) return std::nullopt;
  const std::unique_ptr<std::istream> program(fileUri_.getIStream(nullptr, nullptr));
  if (!program) return std::nullopt;
  const type1::ProgramParts parts = type1::readProgramParts(*program);
  return type1::CharStringWork(type1::findCharStrings(parts.clearText, parts.privatePart));
}

/// A glyph that has its name was loaded under another code.
bool FS_Type1Printer::loadOnce(FT_Face face, unsigned int glyph) {
  if (!records_[glyph].name.empty()) return true;
  if (work_ && !work_->spend(glyphName(face, glyph))) return false;
  return FT_Load_Glyph(face, glyph, FT_LOAD_NO_SCALE) == 0;
}

void FS_Type1Printer::readGlyph(FT_Face face, int code, unsigned int glyph) {
  if (glyph >= records_.size() || !loadOnce(face, glyph)) return;
  FS_Type1GlyphRecord& record = records_[glyph];
  if (record.name.empty()) {
    record.code = code;
    record.width = static_cast<int>(face->glyph->metrics.horiAdvance);
    record.height = static_cast<int>(face->glyph->metrics.height);
    record.name = glyphName(face, glyph);
    if (!record.name.empty()) recordsByName_.emplace(record.name, &record);
  }
  recordsByCode_.emplace(code, &record);
  ++countedRecords_;
}

}  // namespace QXFontService_NS
