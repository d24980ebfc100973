#pragma once

#include <string>
#include <vector>

#include "qxfont/cli/service.h"

namespace qxfont {

/// The family and full names that are nearest to a name that no font has, best first, at most
/// three.
std::vector<std::string> nearNames(Service& service, const std::string& name);

/// The same among names that are given: those that hold `wanted`, then those a few letters away.
std::vector<std::string> nearNames(const std::vector<icu::UnicodeString>& names,
                                   const icu::UnicodeString& wanted);

/// How many characters have to be put in, left out or changed to turn one text into the other;
/// case does not count.
int editDistance(const icu::UnicodeString& a, const icu::UnicodeString& b);

}  // namespace qxfont
