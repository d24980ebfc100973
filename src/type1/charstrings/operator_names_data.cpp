#include "type1/charstrings/operator_names_data.h"

namespace QXFontService_NS::type1 {

constexpr std::array<const char*, 32> kOperatorNames = {
    "?0",       "hstem",     "?2",        "vstem",      "vmoveto",    "rlineto",  "hlineto",
    "vlineto",  "rrcurveto", "closepath", "callsubr",   "return",     "",         "hsbw",
    "endchar",  "?15",       "blend",     "?17",        "hstemhm",    "hintmask", "cntmask",
    "rmoveto",  "hmoveto",   "vstemhm",   "rcurveline", "rlinecurve", "wcurveto", "hhcurveto",
    "shortint", "callgsubr", "vhcurveto", "hvcurveto"};

constexpr std::array<EscapeName, 9> kEscapeNames = {{{0, "dotsection"},
                                                     {1, "vstem3"},
                                                     {2, "hstem3"},
                                                     {6, "seac"},
                                                     {7, "sbw"},
                                                     {12, "div"},
                                                     {16, "callothersubr"},
                                                     {17, "pop"},
                                                     {33, "setcurrentpoint"}}};

}  // namespace QXFontService_NS::type1
