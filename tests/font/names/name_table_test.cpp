#include "font/names/name_table.h"

#include <gtest/gtest.h>

#include <sstream>

#include "support/be_bytes.h"
#include "support/name_builder.h"
#include "support/truncation.h"

namespace QXFontService_NS::names {
namespace {

using qxtest::NameBuilder;
using qxtest::utf16Bytes;

constexpr int kFamily = 0, kStyle = 1, kUnique = 2, kFull = 3, kPostScript = 4, kFindfont = 7;

struct Reading {
  NameTable table;
  TableResult failure;

  std::u16string name(int language, int slot) const {
    const auto set = table.names.sets().find(language);
    if (set == table.names.sets().end()) return u"no set";
    return std::u16string(set->second.view(slot));
  }
};

/// A text of its own for each name id.
std::u16string nameOf(unsigned id) {
  return u"name" + std::u16string(1, static_cast<char16_t>(u'a' + id));
}

Reading readBytes(const std::string& bytes, std::uint32_t statedLength, bool isMacStyle = false) {
  std::istringstream stream(bytes);
  const sfnt::TableRecord record{sfnt::tagOf("name"), 0, statedLength};
  Reading reading;
  reading.failure = readNameTable(stream, &record, isMacStyle, reading.table);
  return reading;
}

Reading read(const NameBuilder& builder, bool isMacStyle = false) {
  const std::string bytes = builder.build();
  return readBytes(bytes, static_cast<std::uint32_t>(bytes.size()), isMacStyle);
}

TEST(NameTable, TakesTheElevenIdsOfWindows) {
  const unsigned ids[] = {1, 2, 3, 4, 6, 16, 17, 20, 0, 8, 13};
  NameBuilder builder;
  for (unsigned id = 0; id < 26; ++id) builder.windows(id, nameOf(id));
  const Reading reading = read(builder);
  ASSERT_EQ(reading.failure, std::nullopt);
  for (int slot = 0; slot < kNameSlotCount; ++slot)
    EXPECT_EQ(reading.name(0x409, slot), nameOf(ids[slot])) << slot;
}

TEST(NameTable, LegalTextsComeFromWindowsOnly) {
  NameBuilder builder;
  for (unsigned id : {1u, 2u, 3u, 4u, 6u, 16u, 17u, 20u, 0u, 8u, 13u}) builder.macintosh(id, "mac");
  const Reading reading = read(builder, true);
  ASSERT_EQ(reading.failure, std::nullopt);
  for (int slot = 0; slot < kNameSlotCount; ++slot)
    EXPECT_EQ(reading.name(0, slot), slot < 8 ? u"mac" : u"") << slot;
}

TEST(NameTable, PassZeroTakesMacintoshFamilyAndFindfontNameAlone) {
  NameBuilder builder;
  builder.macintosh(1, "Mac").macintosh(2, "Bold").macintosh(4, "Mac Bold").macintosh(20, "CID");
  const Reading reading = read(builder.windows(1, u"Win"));
  ASSERT_EQ(reading.failure, std::nullopt);
  EXPECT_EQ(reading.name(0, kFamily), u"Mac");
  EXPECT_EQ(reading.name(0, kFindfont), u"CID");
  EXPECT_EQ(reading.name(0, kStyle), u"");
  EXPECT_EQ(reading.name(0, kFull), u"");
}

TEST(NameTable, AFontOfMacintoshNamesAloneStopsAfterPassZero) {
  NameBuilder builder;
  builder.macintosh(1, "Mac").macintosh(4, "Mac Bold").macintosh(6, "Mac-Bold");
  const Reading reading = read(builder);
  ASSERT_EQ(reading.failure, std::nullopt);
  EXPECT_EQ(reading.name(0, kFamily), u"Mac");
  EXPECT_EQ(reading.name(0, kFull), u"");
  EXPECT_EQ(read(builder, true).name(0, kFull), u"Mac Bold");
}

TEST(NameTable, PassOneComesWhereThePassBeforeFoundNoName) {
  const Reading reading = read(NameBuilder().macintosh(4, "Full").macintosh(6, "PS"));
  ASSERT_EQ(reading.failure, std::nullopt);
  EXPECT_EQ(reading.name(0, kFull), u"Full");
  EXPECT_EQ(reading.name(0, kPostScript), u"PS");
}

TEST(NameTable, IdsOneThreeSixAndSixteenNameTheFont) {
  for (unsigned id = 0; id < 26; ++id) {
    const bool names = id == 1 || id == 3 || id == 6 || id == 16;
    EXPECT_EQ(read(NameBuilder().windows(id, u"x")).failure.has_value(), !names) << id;
    EXPECT_EQ(read(NameBuilder().macintosh(id, "x")).failure.has_value(), !names) << id;
  }
}

TEST(NameTable, TheNameIsFoundEvenByAnEmptyString) {
  EXPECT_EQ(read(NameBuilder().windows(1, u"")).failure, std::nullopt);
  EXPECT_EQ(read(NameBuilder().windows(1, u"").windows(1, u"")).failure, std::nullopt);
}

TEST(NameTable, AFilledSlotMarksTheNameAsFoundWithoutBeingRead) {
  // The second record is neither decoded nor missed, though it lies behind the file.
  NameBuilder builder;
  builder.windows(1, u"First").rawRecord(3, 1, 0x409, 1, 50, 60000);
  const Reading reading = read(builder);
  ASSERT_EQ(reading.failure, std::nullopt);
  EXPECT_EQ(reading.name(0x409, kFamily), u"First");
}

TEST(NameTable, OtherPlatformsAreSkipped) {
  const auto failure = read(NameBuilder().record(0, 3, 0, 1, utf16Bytes(u"Unicode"))).failure;
  EXPECT_EQ(failure, formatFailure("'name' table has no font name"));
  EXPECT_TRUE(read(NameBuilder().record(2, 1, 0, 1, utf16Bytes(u"ISO"))).failure);
}

TEST(NameTable, AFailedFindingLeavesTheTextOfTheMissingName) {
  EXPECT_EQ(read(NameBuilder().windows(2, u"Bold")).failure,
            formatFailure("'name' table has no font name"));
}

TEST(NameTable, WindowsLanguageZeroIsSkippedAndMacintoshZeroIsEnglish) {
  NameBuilder builder;
  builder.windows(1, u"Zero", 0).macintosh(1, "Mac");
  const Reading reading = read(builder);
  ASSERT_EQ(reading.failure, std::nullopt);
  EXPECT_EQ(reading.name(0, kFamily), u"Mac");
  EXPECT_TRUE(read(NameBuilder().windows(1, u"Zero", 0)).failure);
}

TEST(NameTable, WindowsEncodingsBehindFiveAreSkipped) {
  for (unsigned encoding = 0; encoding <= 10; ++encoding)
    EXPECT_EQ(read(NameBuilder().windows(1, u"x", 0x409, encoding)).failure.has_value(),
              encoding > 5)
        << encoding;
}

TEST(NameTable, MacintoshEncodingsOutsideTheListAreSkipped) {
  EXPECT_TRUE(read(NameBuilder().macintosh(1, "x", 0, 4)).failure);
  EXPECT_FALSE(read(NameBuilder().macintosh(1, "x", 33, 25)).failure);
}

TEST(NameTable, TheFirstRecordOfASlotWins) {
  NameBuilder builder;
  builder.windows(1, u"First").windows(1, u"Second").windows(1, u"French", 0x40C);
  const Reading reading = read(builder);
  EXPECT_EQ(reading.name(0x409, kFamily), u"First");
  EXPECT_EQ(reading.name(0x40C, kFamily), u"French");
}

TEST(NameTable, ASlotFilledInPassZeroStaysInPassOne) {
  // Nothing names the font in pass 0, but id 20 is stored there already.
  NameBuilder builder;
  builder.macintosh(20, "One").macintosh(20, "Two").macintosh(6, "PS");
  const Reading reading = read(builder);
  ASSERT_EQ(reading.failure, std::nullopt);
  EXPECT_EQ(reading.name(0, kFindfont), u"One");
}

TEST(NameTable, AnEmptyStringLeavesTheSlotToTheNext) {
  NameBuilder builder;
  builder.windows(1, u"").windows(1, u"Second");
  EXPECT_EQ(read(builder).name(0x409, kFamily), u"Second");
}

TEST(NameTable, AControlCharacterVoidsTheStringAndTheFinding) {
  EXPECT_EQ(read(NameBuilder().windows(1, u"a\nb")).failure,
            formatFailure("'name' table has no font name"));
  NameBuilder builder;
  builder.windows(1, u"Good").windows(0, u"Line one\nline two").windows(3, u"a\nb");
  const Reading reading = read(builder);
  ASSERT_EQ(reading.failure, std::nullopt);
  EXPECT_EQ(reading.name(0x409, 8), u"");
  EXPECT_EQ(reading.name(0x409, kUnique), u"");
}

TEST(NameTable, AVoidNameSendsTheReaderIntoPassOne) {
  NameBuilder builder;
  builder.windows(1, u"a\nb").macintosh(4, "Mac Bold").macintosh(6, "Mac-Bold");
  const Reading reading = read(builder);
  ASSERT_EQ(reading.failure, std::nullopt);
  EXPECT_EQ(reading.name(0, kFull), u"Mac Bold");
  EXPECT_EQ(reading.name(0, kPostScript), u"Mac-Bold");
}

TEST(NameTable, AVoidStringStillMakesTheLanguage) {
  NameBuilder builder;
  builder.windows(1, u"Good").windows(1, u"a\nb", 0x411);
  EXPECT_EQ(read(builder).name(0x411, kFamily), u"");
}

TEST(NameTable, SymbolicNeedsTheSymbolEncodingAndNoTextEncoding) {
  EXPECT_TRUE(read(NameBuilder().windows(1, u"x", 0x409, 0)).table.isSymbolic);
  EXPECT_FALSE(read(NameBuilder().windows(1, u"x")).table.isSymbolic);
  EXPECT_FALSE(read(NameBuilder().macintosh(1, "x")).table.isSymbolic);
  for (unsigned encoding = 1; encoding <= 5; ++encoding) {
    NameBuilder builder;
    builder.windows(1, u"x", 0x409, 0).windows(2, u"x", 0x409, encoding);
    EXPECT_FALSE(read(builder).table.isSymbolic) << encoding;
  }
}

TEST(NameTable, SkippedRecordsStillTellTheirEncoding) {
  NameBuilder languageZero;
  languageZero.windows(1, u"x", 0x409, 0).windows(1, u"x", 0, 1);
  EXPECT_FALSE(read(languageZero).table.isSymbolic);
  NameBuilder unknownId;
  unknownId.windows(1, u"x", 0x409, 0).windows(99, u"x", 0x409, 1);
  EXPECT_FALSE(read(unknownId).table.isSymbolic);
  NameBuilder ucs4;
  ucs4.windows(1, u"x", 0x409, 0).windows(1, u"x", 0x409, 10);
  EXPECT_TRUE(read(ucs4).table.isSymbolic);
}

TEST(NameTable, PostScriptNamesOfLanguagesAreCompared) {
  NameBuilder equal;
  equal.windows(1, u"x").windows(6, u"PS").windows(6, u"PS", 0x411);
  EXPECT_FALSE(read(equal).table.psNameDiffers);
  NameBuilder differs;
  differs.windows(1, u"x").windows(6, u"PS").windows(6, u"", 0x40C).windows(6, u"Other", 0x411);
  EXPECT_TRUE(read(differs).table.psNameDiffers);
  NameBuilder thenEqual;
  thenEqual.windows(1, u"x").windows(6, u"A").windows(6, u"B", 0x411).windows(6, u"B", 0x412);
  EXPECT_TRUE(read(thenEqual).table.psNameDiffers);
}

TEST(NameTable, OnlyStoredPostScriptNamesOfWindowsAreCompared) {
  NameBuilder notStored;
  notStored.windows(1, u"x").windows(6, u"A").windows(6, u"B");
  EXPECT_FALSE(read(notStored).table.psNameDiffers);
  NameBuilder macintosh;
  macintosh.macintosh(6, "B").windows(1, u"x").windows(6, u"A");
  EXPECT_FALSE(read(macintosh, true).table.psNameDiffers);
  NameBuilder voided;
  voided.windows(1, u"x").windows(6, u"A").windows(6, u"B\n", 0x411).windows(6, u"A", 0x412);
  EXPECT_FALSE(read(voided).table.psNameDiffers);
}

TEST(NameTable, AbsentAndEmptyTables) {
  std::istringstream stream;
  NameTable table;
  EXPECT_EQ(readNameTable(stream, nullptr, false, table), formatFailure("'name' table not found"));
  EXPECT_EQ(read(NameBuilder()).failure, formatFailure("nameTable.count = 0"));
}

TEST(NameTable, TheStringOfAShortReadIsNamedByItsIndex) {
  NameBuilder windows;
  windows.windows(1, u"x").rawRecord(3, 1, 0x409, 4, 4, 0xFFFF);
  EXPECT_EQ(read(windows).failure, readFailure("'name' #1 read error"));
  NameBuilder macintosh;
  macintosh.rawRecord(1, 0, 0, 1, 1, 0xFFFF);
  EXPECT_EQ(read(macintosh).failure, readFailure("'name' #0 read error"));
  NameBuilder nothing;
  nothing.rawRecord(3, 1, 0x409, 1, 0, 0xFFFF);
  EXPECT_EQ(read(nothing).failure, std::nullopt);
}

TEST(NameTable, CutAtEveryByteEachPartHasItsReport) {
  const std::string bytes = NameBuilder().windows(1, u"Ab").windows(4, u"Cd").build();
  qxtest::forEachPrefix(bytes, [&](const std::string& cut) {
    const auto failure = readBytes(cut, static_cast<std::uint32_t>(bytes.size())).failure;
    const char* text = cut.size() < 6    ? "'name' table read error"
                       : cut.size() < 30 ? "nameRecord read error"
                       : cut.size() < 34 ? "'name' #0 read error"
                                         : "'name' #1 read error";
    EXPECT_EQ(failure, readFailure(text)) << cut.size();
  });
}

TEST(NameTable, StringsOutsideTheStatedLengthCount) {
  const std::string bytes = NameBuilder().latin(u"QX").build();
  for (const std::uint32_t length : {0u, 5u, 6u, 40u, 0xFFFFFFFFu}) {
    const Reading reading = readBytes(bytes, length);
    ASSERT_EQ(reading.failure, std::nullopt) << length;
    EXPECT_EQ(reading.name(0x409, kPostScript), u"QX-Regular") << length;
  }
}

TEST(NameTable, DamageIsSurvived) {
  const std::string bytes = NameBuilder().latin(u"QX").macintosh(1, "Mac").build();
  int failures = 0;
  qxtest::forEachDamage(bytes, [&](const std::string& damaged) {
    if (readBytes(damaged, static_cast<std::uint32_t>(bytes.size())).failure) ++failures;
  });
  EXPECT_GT(failures, 0);
}

TEST(NameTable, TheCountMayBeTheLargest) {
  qxtest::BeBytes bytes;
  bytes.u16(0).u16(0xFFFF).u16(6);
  for (unsigned i = 0; i < 0xFFFF; ++i) bytes.u16(3).u16(1).u16(0x409).u16(1).u16(2).u16(4);
  EXPECT_EQ(readBytes(bytes.str(), static_cast<std::uint32_t>(bytes.size())).failure, std::nullopt);
  EXPECT_EQ(readBytes(bytes.str().substr(0, 600), 600).failure,
            readFailure("nameRecord read error"));
}

TEST(NameTable, RecordsOnTheSameBytesDoNotMultiplyInMemory) {
  qxtest::BeBytes bytes;
  bytes.u16(0).u16(0x1000).u16(6 + 12 * 0x1000);
  for (unsigned i = 1; i <= 0x1000; ++i) bytes.u16(3).u16(1).u16(i).u16(1).u16(0xFFFE).u16(0);
  const Reading reading = readBytes(bytes.str() + std::string(0x10000, 'x'), 0xFFFFFFFF);
  ASSERT_EQ(reading.failure, std::nullopt);
  std::size_t units = 0;
  for (const auto& [language, set] : reading.table.names.sets()) units += set.view(0).size();
  EXPECT_GT(units, 0u);
  EXPECT_LE(units * 2, 32u * 1024 * 1024);
}

}  // namespace
}  // namespace QXFontService_NS::names
