#include "embed/cff/dict_entries.h"

namespace QXFontService_NS::cff {
namespace {

using embed::Keyword;

constexpr DictEntry kTop[] = {
    {0, Keyword::kVersion, StoredAs::integer},
    {1, Keyword::kNotice, StoredAs::integer},
    {2, Keyword::kFullName, StoredAs::integer},
    {3, Keyword::kFamilyName, StoredAs::integer},
    {4, Keyword::kWeight, StoredAs::integer},
    {5, Keyword::kFontBBox, StoredAs::map},
    {0x0C00, Keyword::kCopyright, StoredAs::integer},
    {0x0C01, Keyword::kIsFixedPitch, StoredAs::truth},
    {0x0C02, Keyword::kItalicAngle, StoredAs::integer},  // a real angle is cut
    {0x0C03, Keyword::kUnderlinePosition, StoredAs::integer},
    {0x0C04, Keyword::kUnderlineThickness, StoredAs::integer},
    {0x0C05, Keyword::kPaintType, StoredAs::integer},
    {0x0C06, Keyword::kCharstringType, StoredAs::integer},
    {0x0C07, Keyword::kFontMatrix, StoredAs::map},
    {0x0C08, Keyword::kStrokeWidth, StoredAs::integer},
    {0x0C14, Keyword::kSyntheticBase, StoredAs::integer},
    {0x0C15, Keyword::kPostScript, StoredAs::integer},
    {0x0C16, Keyword::kBaseFontName, StoredAs::integer},
    {0x0C17, Keyword::kBaseFontBlend, StoredAs::map},
    {0x0C1E, Keyword::kROS, StoredAs::map},
    {0x0C1F, Keyword::kCIDFontVersion, StoredAs::integer},
    {0x0C20, Keyword::kCIDFontRevision, StoredAs::integer},
    {0x0C21, Keyword::kCIDFontType, StoredAs::integer},
    {0x0C22, Keyword::kCIDCount, StoredAs::integer},
    {0x0C23, Keyword::kUIDBase, StoredAs::integer},
    {0x0C24, Keyword::kFDArray, StoredAs::integer},
    {0x0C25, Keyword::kFDSelect, StoredAs::integer},
    {0x0C26, Keyword::kFontName, StoredAs::integer},
    {13, Keyword::kUniqueID, StoredAs::integer},
    {14, Keyword::kXUID, StoredAs::integer},
    {15, Keyword::kCharset, StoredAs::integer},
    {16, Keyword::kEncoding, StoredAs::integer},
    {17, Keyword::kCharStrings, StoredAs::integer},
    {18, Keyword::kPrivate, StoredAs::map},
};

constexpr DictEntry kPrivate[] = {
    {6, Keyword::kBlueValues, StoredAs::map},
    {7, Keyword::kOtherBlues, StoredAs::map},
    {8, Keyword::kFamilyBlues, StoredAs::map},
    {9, Keyword::kFamilyOtherBlues, StoredAs::map},
    {10, Keyword::kStdHW, StoredAs::number},
    {11, Keyword::kStdVW, StoredAs::number},
    {0x0C09, Keyword::kBlueScale, StoredAs::number},
    {0x0C0A, Keyword::kBlueShift, StoredAs::number},
    {0x0C0B, Keyword::kBlueFuzz, StoredAs::number},
    {0x0C0C, Keyword::kStemSnapH, StoredAs::map},
    {0x0C0D, Keyword::kStemSnapV, StoredAs::map},
    {0x0C0E, Keyword::kForceBold, StoredAs::truth},
    {0x0C11, Keyword::kLanguageGroup, StoredAs::number},
    {0x0C12, Keyword::kExpansionFactor, StoredAs::number},
    {0x0C13, Keyword::kInitialRandomSeed, StoredAs::number},
    {19, Keyword::kSubrs, StoredAs::number},
    {20, Keyword::kDefaultWidthX, StoredAs::number},
    {21, Keyword::kNominalWidthX, StoredAs::number},
};

constexpr DictEntry kFont[] = {
    {0x0C26, Keyword::kFontName, StoredAs::number},
    {18, Keyword::kPrivate, StoredAs::map},
};

}  // namespace

constexpr std::span<const DictEntry> kTopDictEntries{kTop};
constexpr std::span<const DictEntry> kPrivateDictEntries{kPrivate};
constexpr std::span<const DictEntry> kFontDictEntries{kFont};

}  // namespace QXFontService_NS::cff
