#include "font/names/name_decoder.h"

#include <gtest/gtest.h>

#include "support/name_builder.h"

namespace QXFontService_NS::names {
namespace {

std::u16string macintosh(unsigned encoding, const std::string& text) {
  return decodeMacintosh(encoding, ByteView(text.data(), text.size()));
}

std::optional<std::u16string> windows(unsigned encoding, const std::string& text) {
  return decodeWindows(encoding, ByteView(text.data(), text.size()));
}

TEST(NameDecoder, MacintoshEncodingsAreZeroToThreeAndTwentyFive) {
  for (unsigned encoding = 0; encoding < 40; ++encoding)
    EXPECT_EQ(isMacintoshEncoding(encoding), encoding < 4 || encoding == 25) << encoding;
}

TEST(NameDecoder, MacintoshStringsByCodePage) {
  EXPECT_EQ(macintosh(0, "Plain"), u"Plain");
  EXPECT_EQ(macintosh(0, "caf\xE9"), u"caf\u00E9");  // Windows Latin, not Mac Roman
  EXPECT_EQ(macintosh(1, "\x83\x81\x83\x43"), u"\u30E1\u30A4");
  EXPECT_EQ(macintosh(2, "\xB2\xD3\xA9\xFA"), u"\u7D30\u660E");
  EXPECT_EQ(macintosh(3, "\xB1\xBC\xB8\xB2"), u"\uAD74\uB9BC");
  EXPECT_EQ(macintosh(25, "\xCB\xCE\xCC\xE5"), u"\u5B8B\u4F53");
  EXPECT_EQ(macintosh(4, "x"), u"");
  EXPECT_EQ(macintosh(0, ""), u"");
}

TEST(NameDecoder, WindowsStringsAreUtf16) {
  for (unsigned encoding = 0; encoding <= 5; ++encoding)
    EXPECT_EQ(windows(encoding, qxtest::utf16Bytes(u"\u30E1A")), u"\u30E1A") << encoding;
  EXPECT_EQ(windows(1, qxtest::utf16Bytes(u"\xD83D\xDE00")), u"\xD83D\xDE00");
}

TEST(NameDecoder, AnOddByteIsDropped) {
  EXPECT_EQ(windows(1, qxtest::utf16Bytes(u"Ab") + "\x7F"), u"Ab");
  EXPECT_EQ(windows(3, std::string("\0\xCB\0\xCE\x55", 5)), u"\u5B8B");
  EXPECT_EQ(windows(1, "x"), u"");
}

TEST(NameDecoder, AZeroUnitEndsTheString) {
  EXPECT_EQ(windows(1, qxtest::utf16Bytes(std::u16string(u"Ab\0\n", 4))), u"Ab");
}

TEST(NameDecoder, AControlCharacterVoidsTheWholeString) {
  for (const char16_t control : {u'\x01', u'\n', u'\x1F', u'\x7F', u'\x80', u'\x9F'})
    EXPECT_EQ(windows(1, qxtest::utf16Bytes(std::u16string(u"Line") + control)), std::nullopt);
  for (const char16_t good : {u' ', u'~', u'\xA0'})
    EXPECT_NE(windows(1, qxtest::utf16Bytes(std::u16string(u"Line") + good)), std::nullopt);
}

TEST(NameDecoder, ZeroHighBytesMeanALegacyEncoding) {
  EXPECT_EQ(windows(2, std::string("\0\x83\0\x81", 4)), u"\u30E1");
  EXPECT_EQ(windows(3, std::string("\0\xCB\0\xCE", 4)), u"\u5B8B");
  EXPECT_EQ(windows(4, std::string("\0\xB2\0\xD3", 4)), u"\u7D30");
  EXPECT_EQ(windows(5, std::string("\0\xB1\0\xBC", 4)), u"\uAD74");
  EXPECT_EQ(windows(1, std::string("\0\xCB\0\xCE", 4)), u"\u00CB\u00CE");
}

TEST(NameDecoder, OneHighByteMakesTheStringUtf16) {
  EXPECT_EQ(windows(3, qxtest::utf16Bytes(u"A\u5B8B")), u"A\u5B8B");
}

TEST(NameDecoder, LegacyStringsMayHoldControls) {
  EXPECT_EQ(windows(3, std::string("\0A\0\n", 4)), u"A\n");
}

TEST(NameDecoder, AnEmptyStringCountsAsNeither) {
  for (unsigned encoding = 0; encoding <= 5; ++encoding)
    EXPECT_EQ(windows(encoding, ""), u"") << encoding;
}

}  // namespace
}  // namespace QXFontService_NS::names
