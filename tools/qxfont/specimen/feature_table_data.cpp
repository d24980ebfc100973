#include <array>

#include "qxfont/specimen/feature_table.h"

namespace qxfont {
namespace {

constexpr const char* kLetters =
    "A B C D E F G H I J K L M N O P Q R S T U V W X Y Z a b c d e f g h i j k l m n o p q r s t u "
    "v w x y z & ? ! @ 0 1 2 3 4 5 6 7 8 9";

constexpr std::array kTable = {
    KnownFeature{layoutTag("kern"), "Kerning", "AVATAR Type WAVE To."},
    KnownFeature{layoutTag("liga"), "Standard ligatures", "office flag first fjord"},
    KnownFeature{layoutTag("clig"), "Contextual ligatures", "office flag first fjord"},
    KnownFeature{layoutTag("dlig"), "Discretionary ligatures", "act strict Quest spirit Thing"},
    KnownFeature{layoutTag("hlig"), "Historical ligatures", "ſhe ſit act ſt"},
    KnownFeature{layoutTag("rlig"), "Required ligatures", ""},
    KnownFeature{layoutTag("calt"), "Contextual alternates", "good Qu off -> => 10x10"},
    KnownFeature{layoutTag("init"), "Initial forms", ""},
    KnownFeature{layoutTag("medi"), "Medial forms", ""},
    KnownFeature{layoutTag("fina"), "Final forms", ""},
    KnownFeature{layoutTag("mark"), "Mark positioning", "x̣ m̌ q̃ g̊"},
    KnownFeature{layoutTag("smcp"), "Small capitals", "Small Capitals"},
    KnownFeature{layoutTag("c2sc"), "Capitals to small capitals", "NATO UNESCO"},
    KnownFeature{layoutTag("pcap"), "Petite capitals", "Petite Capitals"},
    KnownFeature{layoutTag("case"), "Case-sensitive forms", "(H) [H] ¿H? «H» H-H"},
    KnownFeature{layoutTag("onum"), "Oldstyle figures", "0123456789"},
    KnownFeature{layoutTag("lnum"), "Lining figures", "0123456789"},
    KnownFeature{layoutTag("pnum"), "Proportional figures", "0123456789 1111"},
    KnownFeature{layoutTag("tnum"), "Tabular figures", "0123456789 1111"},
    KnownFeature{layoutTag("zero"), "Slashed zero", "100 2000"},
    KnownFeature{layoutTag("frac"), "Fractions", "1/2 3/4 25/64"},
    KnownFeature{layoutTag("afrc"), "Alternative fractions", "1/2 3/4 25/64"},
    KnownFeature{layoutTag("ordn"), "Ordinals", "1a 2o 3rd No"},
    KnownFeature{layoutTag("sups"), "Superscript", "x2 y3 0123456789"},
    KnownFeature{layoutTag("subs"), "Subscript", "H2O C6H12O6"},
    KnownFeature{layoutTag("sinf"), "Scientific inferiors", "H2O C6H12O6"},
    KnownFeature{layoutTag("numr"), "Numerators", "0123456789"},
    KnownFeature{layoutTag("dnom"), "Denominators", "0123456789"},
    KnownFeature{layoutTag("swsh"), "Swash", kLetters},
    KnownFeature{layoutTag("cswh"), "Contextual swash", kLetters},
    KnownFeature{layoutTag("titl"), "Titling", kLetters},
    KnownFeature{layoutTag("hist"), "Historical forms", "s sit same"},
    KnownFeature{layoutTag("salt"), "Stylistic alternates", kLetters},
    KnownFeature{layoutTag("ss01"), "Stylistic set 1", kLetters},
    KnownFeature{layoutTag("ss02"), "Stylistic set 2", kLetters},
    KnownFeature{layoutTag("ss03"), "Stylistic set 3", kLetters},
    KnownFeature{layoutTag("ss04"), "Stylistic set 4", kLetters},
    KnownFeature{layoutTag("ss05"), "Stylistic set 5", kLetters},
    KnownFeature{layoutTag("ss06"), "Stylistic set 6", kLetters},
    KnownFeature{layoutTag("ss07"), "Stylistic set 7", kLetters},
    KnownFeature{layoutTag("ss08"), "Stylistic set 8", kLetters},
    KnownFeature{layoutTag("fwid"), "Full widths", "Full 123"},
    KnownFeature{layoutTag("hwid"), "Half widths", "Half 123"},
    KnownFeature{layoutTag("pwid"), "Proportional widths", "、。「」カタカナ"},
    KnownFeature{layoutTag("palt"), "Proportional alternates", "、。「」カタカナ"},
    KnownFeature{layoutTag("halt"), "Alternate half widths", "、。「」・"},
    KnownFeature{layoutTag("ruby"), "Ruby forms", "ひらがな カタカナ"},
    KnownFeature{layoutTag("trad"), "Traditional forms", "亜 医 国 学 体"},
    KnownFeature{layoutTag("jp78"), "JIS78 forms", "辻 飴 鯖 葛 逢"},
    KnownFeature{layoutTag("jp90"), "JIS90 forms", "辻 飴 鯖 葛 逢"},
};

}  // namespace

const std::vector<KnownFeature>& knownFeatures() {
  static const std::vector<KnownFeature> all(kTable.begin(), kTable.end());
  return all;
}

}  // namespace qxfont
