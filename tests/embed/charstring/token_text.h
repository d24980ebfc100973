#pragma once

#include <sstream>
#include <string>

#include "embed/charstring/tokens.h"
#include "embed/keyword/keyword.h"
#include "font/contract/keywords.h"

namespace QXFontService_NS::charstring {

/// Tokens as a line of text, reals with a point: `1 2.5 rmoveto`. The keyword without a word is
/// `?`.
inline std::string textOf(const FS_CharStringTokens& tokens) {
  std::ostringstream out;
  const char* gap = "";
  for (const QXCommonNS::QXValue& token : tokens) {
    std::string word;
    token.toString().toUTF8String(word);
    if (token.isName() && word.empty()) word = "?";
    if (token.isReal() && word.find('.') == std::string::npos) word += ".0";
    out << gap << word;
    gap = " ";
  }
  return out.str();
}

/// The tokens of such a line.
inline FS_CharStringTokens tokensOf(const std::string& line) {
  FS_CharStringTokens tokens;
  std::istringstream words(line);
  for (std::string word; words >> word;) {
    const int keyword = FS_KeywordIndex(icu::UnicodeString(word.c_str()));
    if (keyword != 0 || word == "?") {
      tokens.push_back(embed::keywordValue(static_cast<embed::Keyword>(keyword)));
    } else if (word.find('.') != std::string::npos) {
      tokens.emplace_back(std::stod(word));
    } else {
      tokens.emplace_back(std::stoi(word));
    }
  }
  return tokens;
}

}  // namespace QXFontService_NS::charstring
