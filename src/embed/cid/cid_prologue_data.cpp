#include "embed/cid/cid_prologue.h"

namespace QXFontService_NS::cid {

using embed::Keyword;

constexpr std::string_view kRegistry = "Quillbracken";
constexpr std::string_view kOrderingTail = "Subset";
constexpr std::string_view kDefaultFontBBox = "0 0 0 0";
constexpr std::string_view kDefaultFontMatrix = "0.001 0 0 0.001 0 0";

constexpr std::string_view kPrologueHead =
    "/CIDInit /ProcSet findresource begin\n"
    "20 dict begin\n"
    "/CIDFontName /@fontName@ def\n"
    "/CIDFontType 0 def\n"
    "/CIDSystemInfo 3 dict dup begin\n"
    "/Registry (@registry@) def\n"
    "/Ordering (@ordering@) def\n"
    "/Supplement @supplement@ def\n"
    "end def\n"
    "/FontBBox [@fontBBox@] def\n"
    "/FontInfo 3 dict dup begin\n"
    "/Nontice () def\n"
    "/Ordering () def\n"
    "/FSType 4 def\n"
    "end def\n"
    "/CIDCount @glyphs@ def\n"
    "/GDBytes @gdBytes@ def\n"
    "/FDBytes @fdBytes@ def\n"
    "/CIDMapOffset 0 def\n"
    "/PaintType 0 def\n"
    "/FDArray @fontDicts@ array\n";

constexpr std::string_view kFontDictHead =
    "dup @index@\n"
    "%ADOBeginFontDict\n"
    "14 dict begin\n"
    "/FontType 1 def\n"
    "/FontMatrix [@fontMatrix@] def\n"
    "/PaintType 0 def\n"
    "%ADOBeginPrivateDict\n"
    "/Private 25 dict dup begin\n";

constexpr PrivateLine kLines[] = {
    {Keyword::kBlueFuzz, "/BlueFuss ", PrivateForm::value, " def\n"},
    {Keyword::kBlueScale, "/BlueScale ", PrivateForm::value, " def\n"},
    {Keyword::kBlueShift, "/BlueShift ", PrivateForm::value, " def\n"},
    {Keyword::kBlueValues, "/BlueValues [", PrivateForm::deltas, " ] def\n"},
    {Keyword::kOtherBlues, "/OtherBlues [", PrivateForm::deltas, " ] def\n"},
    {Keyword::kFamilyBlues, "/FamilyBlues [", PrivateForm::deltas, "] def\n"},
    {Keyword::kFamilyOtherBlues, "/FamilyOtherBlues [", PrivateForm::deltas, "] def\n"},
    {Keyword::kStdHW, "/StdHW [ ", PrivateForm::value, " ] def\n"},
    {Keyword::kStdVW, "/StdVW [ ", PrivateForm::value, " ] def\n"},
    {Keyword::kStemSnapH, "/StemSnapH [ ", PrivateForm::sums, " ] def\n"},
    {Keyword::kStemSnapV, "/StemSnapV [ ", PrivateForm::sums, " ] def\n"},
    {Keyword::kForceBold, "/ForceBold ", PrivateForm::value, " def\n"},
    {Keyword::kLanguageGroup, "/LanguageGroup ", PrivateForm::languageGroup, " def\n"},
    {Keyword::kExpansionFactor, "/ExpansionFactor ", PrivateForm::value, " def\n"},
};
constexpr std::span<const PrivateLine> kPrivateLines{kLines};

constexpr std::string_view kRndStemUp = "/RndStemUp false def\n";

constexpr std::string_view kFontDictTail =
    "/lenIV 0 def\n"
    "/MinFeature {16 16} def\n"
    "/password 5839 def\n"
    "@flexProcedures@\n"
    "/RD {string currentfile exch readstring pop} executeonly def\n"
    "/ND {noaccess def} executeonly def\n"
    "/NP {noaccess put} executeonly def\n"
    "/SubrCount @subrs@ def\n"
    "/SDBytes @sdBytes@ def\n"
    "/SubrMapOffset @subrMapOffset@ def\n"
    "end def\n"
    "%ADOEndPrivateDict\n"
    "currentdict end\n"
    "%ADOEndFontDict\n"
    "put\n";

constexpr std::string_view kPrologueTail =
    "def\n"
    "%%BeginData: /*SIZE OMITTED*/ Binary Bytes\n"
    "(Hex) @blockSize@ StartData\n";

constexpr std::string_view kDataTail =
    ">\n"
    "%%EndData\n";

}  // namespace QXFontService_NS::cid
