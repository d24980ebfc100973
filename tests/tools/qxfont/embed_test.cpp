#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "qxfont/cli/status.h"
#include "qxfont/embed/form.h"
#include "qxfont/embed/glyph_choice.h"

namespace qxfont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

template <class Function>
Status statusOf(Function&& function) {
  try {
    function();
  } catch (const ToolError& error) {
    return error.status();
  }
  return Status::done;
}

TEST(GlyphChoice, readsCodePoints) {
  EXPECT_THAT(parseUnicodes("U+0041"), ElementsAre(0x41));
  EXPECT_THAT(parseUnicodes("u+41, U+1F600"), ElementsAre(0x41, 0x1F600));
  EXPECT_THAT(parseUnicodes("U+41-43,U+41-U+42"), ElementsAre(0x41, 0x42, 0x43, 0x41, 0x42));
}

TEST(GlyphChoice, refusesWhatIsNoCodePoint) {
  for (const char* text : {"", "41", "U+", "U+G", "U+110000", "U+43-41", "U+41,,U+42", "U+41-",
                           "U+41-42-43", "U+-1", "U+0x41", "U+999999999999"}) {
    EXPECT_EQ(statusOf([&] { parseUnicodes(text); }), Status::wrongCall) << text;
  }
}

TEST(GlyphChoice, readsGlyphIds) {
  EXPECT_THAT(parseGids("0"), ElementsAre(0));
  EXPECT_THAT(parseGids("3,5-7, 65534"), ElementsAre(3, 5, 6, 7, 65534));
}

TEST(GlyphChoice, refusesWhatIsNoGlyphId) {
  for (const char* text : {"", "x", "65535", "-1", "7-5", "3,", "1.5", "U+0041"}) {
    EXPECT_EQ(statusOf([&] { parseGids(text); }), Status::wrongCall) << text;
  }
}

TEST(GlyphChoice, takesTheCharactersOfATextButNoControls) {
  EXPECT_THAT(parseText("a\n\t😀a"), ElementsAre('a', 0x1F600, 'a'));
  EXPECT_THAT(parseText(""), IsEmpty());
}

TEST(Forms, areFoundByName) {
  for (const Form& form : forms()) EXPECT_EQ(&formOf(form.name), &form);
}

TEST(Forms, ofOtherNamesAreAWrongCall) {
  for (const char* name : {"", "SFNT", "pdf"}) {
    EXPECT_EQ(statusOf([&] { formOf(name); }), Status::wrongCall) << name;
  }
}

TEST(Forms, areToldInOrder) {
  EXPECT_EQ(formNames(),
            "sfnt, sfnt-cmap, sfnt-all, svg2, stream, ps-glyphs, cff, cid-ps, type1, woff");
}

TEST(Forms, areNotThoseOfAnEmptyFont) {
  const QXFontService_NS::FS_FontInfo none;
  EXPECT_EQ(formNames(none, false), "none");
}

}  // namespace
}  // namespace qxfont
