#include "font/contract/font_name_rules.h"

#include <gtest/gtest.h>

#include <string>

namespace QXFontService_NS {
namespace {

std::string normalized(const UnicodeString& name) {
  std::string result;
  return normalizeFontName(name).toUTF8String(result);
}

TEST(NormalizeFontName, DropsBlanksHyphensAndIdeographicSpaces) {
  EXPECT_EQ(normalized(u" Noto Sans - CJK\u3000JP "), "NOTOSANSCJKJP");
}

TEST(NormalizeFontName, TouchesNothingElse) {
  EXPECT_EQ(normalized(u"a_b\tc\u00A0d\u2010e.f"), "A_B\tC\u00A0D\u2010E.F");
}

TEST(NormalizeFontName, UsesTheFullUpperCaseMapping) {
  EXPECT_EQ(normalized(u"Stra\u00DFe"), "STRASSE");
}

TEST(NormalizeFontName, KeepsCharactersBeyondTheBasicPlane) {
  EXPECT_EQ(normalized(u"\U0001F600 a"), "\U0001F600A");
}

TEST(NormalizeFontName, DoesNotDependOnTheLanguageOfTheProcess) {
  UErrorCode status = U_ZERO_ERROR;
  const Locale before = Locale::getDefault();
  Locale::setDefault(Locale("tr"), status);
  EXPECT_EQ(normalized(u"Linux Libertine"), "LINUXLIBERTINE");
  EXPECT_EQ(weightFromName(u"THIN"), 100);
  Locale::setDefault(before, status);
}

TEST(NormalizeFontName, OfNothingButDroppedCharactersIsEmpty) {
  EXPECT_EQ(normalized(u""), "");
  EXPECT_EQ(normalized(u" -\u3000"), "");
}

struct Row {
  const char16_t* text;
  int weight;
};

TEST(WeightFromName, TakesTheFirstRuleThatApplies) {
  const Row rows[] = {
      {u"Thin", 100},        {u"Thin Bold", 100},
      {u"Extra Light", 200}, {u"UltraLight", 200},
      {u"Light", 300},       {u"Semi Light", 300},
      {u"Light Bold", 300},  {u"Medium", 500},
      {u"Medium Bold", 500}, {u"Demi Bold", 600},
      {u"SemiBold", 600},    {u"Extra Bold", 800},
      {u"ultrabold", 800},   {u"Demi Extra Bold", 600},
      {u"Bold", 700},        {u"BOLD ITALIC", 700},
      {u"Black", 900},       {u"Heavy", 900},
      {u"Extra Black", 900}, {u"Demi", 400},
      {u"Extra", 400},       {u"Regular", 400},
      {u"Book", 400},        {u"", 400},
  };
  for (const Row& row : rows) EXPECT_EQ(weightFromName(row.text), row.weight) << row.weight;
}

}  // namespace
}  // namespace QXFontService_NS
