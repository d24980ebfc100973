#include "qxfontservice/ext/numbering.h"

#include <cmath>
#include <map>
#include <set>

#include "qxcommon/lock.h"

#include "embed/cff/cff_info.h"
#include "font/contract/outline_lock.h"
#include "font/sfnt_font.h"
#include "service/boundary.h"
#include "type1/type1.h"
#include "type1/type1_printer.h"

namespace QXFontService_NS::ext {
namespace {

using Gids = std::vector<unsigned short>;
using Numbers = std::vector<GlyphNumber>;

GlyphNumber numbered(unsigned short glyph, std::size_t id) {
  GlyphNumber number;
  number.glyph = glyph;
  number.id = static_cast<unsigned short>(id);
  return number;
}

/// Glyphs that keep their ids.
Numbers keptIds(const Gids& gids) {
  Numbers numbers;
  for (const unsigned short glyph : std::set<unsigned short>(gids.begin(), gids.end()))
    if (glyph != FS_NO_GLYPH) numbers.push_back(numbered(glyph, glyph));
  return numbers;
}

/// Glyph 0 is CID 0, whatever is asked for.
Numbers countedCids(const Gids& gids) {
  Numbers numbers;
  for (const unsigned short glyph : gids)
    if (glyph != 0 && glyph != FS_NO_GLYPH) numbers.push_back(numbered(glyph, numbers.size() + 1));
  return numbers;
}

/// A face whose record lives in an sfnt font.
class NumberedFace {
 public:
  explicit NumberedFace(const FS_FontInfo& font) : entry_(font.getEntry()) {
    if (font.getFont() == nullptr) return;
    font_ = dynamic_cast<SfntFont*>(font.getFont()->getExtraBaseFont());
    info_ = SfntFont::recordOf(*font.getFont(), entry_);
  }

  [[nodiscard]] bool exists() const { return info_ != nullptr; }

  [[nodiscard]] Numbers numbers(NumberedForm form, const Gids& gids) const {
    if (form == NumberedForm::cidFontType0) return hasCidForm() ? countedCids(gids) : Numbers();
    if (form == NumberedForm::embedFont && embedsCff()) return ofBareCff(gids);
    return keptIds(gids);
  }

  void describe(Numbers& numbers) const {
    const std::map<unsigned short, int> characters = lowestCharacters(numbers);
    for (GlyphNumber& number : numbers) {
      number.width = info_->getGlyphWidth(number.glyph, 0, false);
      const auto found = characters.find(number.glyph);
      if (found != characters.end()) number.unicode = found->second;
    }
  }

 private:
  [[nodiscard]] bool hasCidForm() const { return font_->isOpenType(); }
  [[nodiscard]] bool embedsCff() const { return font_->isOpenType() || info_->hasCFF(); }

  [[nodiscard]] Numbers ofBareCff(const Gids& gids) const {
    const FS_CFFInfo* cff = info_->cffFont();
    const bool isCid = cff != nullptr && cff->isCID;
    Numbers numbers;
    for (const auto& [key, glyph] : font_->cffEmbedGlyphs(gids, entry_))
      numbers.push_back(numbered(glyph, isCid ? key : numbers.size() + 1));
    return numbers;
  }

  [[nodiscard]] std::map<unsigned short, int> lowestCharacters(const Numbers& numbers) const {
    std::set<unsigned short> wanted;
    for (const GlyphNumber& number : numbers) wanted.insert(number.glyph);
    std::map<unsigned short, int> characters;
    info_->loaded().maps.forEach([&](int code, std::uint16_t glyph) {
      if (wanted.count(glyph) != 0) characters.emplace(glyph, code);
    });
    return characters;
  }

  SfntFont* font_ = nullptr;
  const FS_TrueTypeInfo* info_ = nullptr;
  int entry_;
};

/// A Type 1 font by its metric file.
class NumberedType1 {
 public:
  explicit NumberedType1(const FS_FontInfo& font)
      : handle_(font), font_(font.getFont() == nullptr ? nullptr : type1Of(*font.getFont())) {}

  [[nodiscard]] bool exists() const { return font_ != nullptr; }

  [[nodiscard]] CharacterNumber number(int character) const {
    CharacterNumber number;
    number.character = character;
    number.code = handle_.getType1CharCode(character);
    if (number.code == 0) return number;
    number.name = nameOf(number.code);
    number.glyph = glyphOf(number.name);
    // Metric files have whole units, which a text's width scales and does not always give back.
    const int em = -handle_.getUnitsPerEm();
    number.width = std::round(handle_.getTextWidth(character, em, false, nullptr));
    return number;
  }

 private:
  static FS_Type1* type1Of(FS_BaseFont& font) {
    return dynamic_cast<FS_Type1*>(font.getExtraBaseFont());
  }

  /// As the writers find it; without a program nothing is written, and the page tells.
  [[nodiscard]] std::string nameOf(unsigned short code) const {
    const auto page = static_cast<unsigned char>(code >> 8);
    const auto place = static_cast<unsigned char>(code & 0xFF);
    const FS_Type1Printer* const program = font_->getPrinterFont();
    if (program != nullptr) return program->nameOnPage(place, handle_.getType1CMapArray(page));
    std::string name;
    handle_.getType1GlyphName(page, place, name);
    return name;
  }

  [[nodiscard]] unsigned short glyphOf(const std::string& name) const {
    QXMutex guard(&FS_OutlineLock());
    FT_Face face = font_->getFreeTypeFace(0);
    const FT_UInt glyph = face != nullptr ? FT_Get_Name_Index(face, name.c_str()) : 0;
    return glyph == 0 ? FS_NO_GLYPH : static_cast<unsigned short>(glyph);
  }

  const FS_FontInfo& handle_;
  FS_Type1* font_;
};

}  // namespace

std::vector<CharacterNumber> numberCharacters(const FS_FontInfo& font,
                                              const std::vector<int>& characters) {
  return service::atBoundary(std::vector<CharacterNumber>(), [&] {
    std::vector<CharacterNumber> numbers;
    const NumberedType1 numbered(font);
    if (!numbered.exists()) return numbers;
    for (const int character : characters) numbers.push_back(numbered.number(character));
    return numbers;
  });
}

std::vector<GlyphNumber> numberGlyphs(const FS_FontInfo& font, NumberedForm form,
                                      const std::vector<unsigned short>& gids) {
  return service::atBoundary(Numbers(), [&] {
    const NumberedFace face(font);
    if (!face.exists()) return Numbers();
    Numbers numbers = face.numbers(form, gids);
    face.describe(numbers);
    return numbers;
  });
}

}  // namespace QXFontService_NS::ext
