#include "embed/cid/cid_writer.h"

#include <array>
#include <cstdio>
#include <cstdlib>

#include "embed/charstring/type1_charstrings.h"
#include "embed/cid/cid_layout.h"
#include "embed/cid/cid_prologue.h"

namespace QXFontService_NS::cid {

using embed::CffSubsetSource;

namespace {

icu::UnicodeString unicodeOf(std::string_view text) {
  return icu::UnicodeString::fromUTF8(icu::StringPiece(text.data(), static_cast<int>(text.size())));
}

icu::UnicodeString withoutBlanks(icu::UnicodeString name) {
  return name.findAndReplace(u" ", u"_");
}

void append(QXCommonNS::QXMemStream& out, std::string_view text) {
  out.write(text.data(), static_cast<std::streamsize>(text.size()));
}

}  // namespace

std::string makeSubsetTag() {
  std::array<char, 16> tag{};
  std::snprintf(tag.data(), tag.size(), "QX%04X-", static_cast<unsigned>(std::rand()));
  return tag.data();
}

bool makeCidFontType0(const CffSubsetSource& source, const std::vector<std::uint16_t>& gids,
                      const icu::UnicodeString& postScriptName, QXCommonNS::QXMemStream& out,
                      icu::UnicodeString& fontName, FS_CIDSystemInfo& info) {
  if (!source.table.exists() || source.info == nullptr) return false;
  charstring::Type1CharStrings font;
  if (!charstring::makeType1CharStrings(source, gids, font)) return false;
  const PackedCharStrings charStrings = packCharStrings(font.charStrings);
  const PackedCharStrings subrs = packCharStrings(font.subrs);
  const CidLayout layout = layOut(charStrings, subrs, font.privates.size());

  const icu::UnicodeString tag = unicodeOf(makeSubsetTag());
  fontName = tag + withoutBlanks(postScriptName);
  info = {unicodeOf(kRegistry), tag + unicodeOf(kOrderingTail), kSupplement};
  std::string name;
  append(out, prologueText({fontName.toUTF8String(name), info, source.info->topDict,
                            std::move(font.privates), font.charStrings.size(), font.subrs.size(),
                            layout}));
  append(out, hexLines(cidBlock(layout, charStrings, subrs, font.fdIndexes)));
  append(out, kDataTail);
  return true;
}

}  // namespace QXFontService_NS::cid
