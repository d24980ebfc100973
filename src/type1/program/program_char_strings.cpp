#include "type1/program/program_char_strings.h"

#include <cstddef>
#include <optional>

#include "type1/eexec/eexec.h"
#include "type1/program/post_script_tokens.h"

namespace QXFontService_NS::type1 {
namespace {

constexpr int kUsualLeadBytes = 4;

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

/// Goes through the two parts of a program. Of a key that stands there twice the first counts, and
/// keys count behind "/Private" alone.
class Finder {
 public:
  explicit Finder(ProgramCharStrings& found) : found_(found) {}

  void search(std::string_view text) {
    PostScriptTokens tokens(text);
    std::string_view before;
    for (std::string_view token = tokens.next(); !token.empty(); token = tokens.next()) {
      if (token == "eexec" || token == "closefile") return;
      if (!before.empty() && isDigit(before.front()) && isReader(token)) {
        skipBinary(before, tokens);
        token = {};
      } else {
        takeKey(token, tokens);
      }
      before = token;
    }
  }

 private:
  /// Whether a word reads bytes of the file: "RD" or "-|".
  static bool isReader(std::string_view token) {
    return token.substr(0, 2) == "RD" || token.substr(0, 2) == "-|";
  }

  void skipBinary(std::string_view count, PostScriptTokens& tokens) {
    const std::optional<int> size = PostScriptTokens(count).integer();
    if (!size || !tokens.bytes(*size)) found_.isSound = false;
  }

  void takeKey(std::string_view token, PostScriptTokens& tokens) {
    if (token == "/Private") isPrivate_ = true;
    if (token == "/lenIV") {
      PostScriptTokens ahead = tokens;
      const std::optional<int> value = ahead.integer();
      found_.isSound = found_.isSound && value;
      leadBytes_ = value.value_or(kUsualLeadBytes);
    }
    if (!isPrivate_) return;
    if (token == "/Subrs" && !tokens.continuesWith("[")) takeSubrs(tokens);
    if (token == "/CharStrings") takeGlyphs(tokens);
  }

  /// "43 array dup 0 15 RD ...bytes... NP dup 1 ..."
  void takeSubrs(PostScriptTokens& tokens) {
    const bool isFirst = found_.subrs.empty();
    found_.isSound = found_.isSound && tokens.integer();
    tokens.next();
    while (tokens.continuesWith("dup")) {
      tokens.next();
      const std::optional<int> number = tokens.integer();
      const std::optional<std::string> code = charString(tokens);
      if (!number || !code) {
        found_.isSound = false;
        return;
      }
      if (isFirst) found_.subrs.insert_or_assign(*number, *code);
      tokens.next();
      if (tokens.continuesWith("put")) tokens.next();
    }
  }

  /// "229 dict dup begin /A 120 RD ...bytes... ND /B ... end"
  void takeGlyphs(PostScriptTokens& tokens) {
    const bool isFirst = found_.glyphs.empty();
    bool any = false;
    for (std::string_view token = tokens.next(); !token.empty(); token = tokens.next()) {
      if (token == "end" || (token == "def" && any)) return;
      if (token.front() != '/') continue;
      const std::optional<std::string> code = charString(tokens);
      if (!code) {
        found_.isSound = false;
        return;
      }
      if (isFirst) found_.glyphs.emplace(token.substr(1), *code);
      any = true;
    }
  }

  /// "120 RD ...bytes..."
  std::optional<std::string> charString(PostScriptTokens& tokens) {
    const std::optional<int> size = tokens.integer();
    if (!size) return std::nullopt;
    tokens.next();
    const std::optional<std::string_view> bytes = tokens.bytes(*size);
    if (!bytes) return std::nullopt;
    std::string code(*bytes);
    if (leadBytes_ < 0) return code;
    if (code.size() < static_cast<std::size_t>(leadBytes_)) return std::nullopt;
    decryptCharString(code);
    return code.erase(0, static_cast<std::size_t>(leadBytes_));
  }

  ProgramCharStrings& found_;
  bool isPrivate_ = false;
  int leadBytes_ = kUsualLeadBytes;
};

}  // namespace

ProgramCharStrings findCharStrings(std::string_view clearText, std::string_view privatePart) {
  ProgramCharStrings found;
  Finder finder(found);
  finder.search(clearText);
  finder.search(privatePart);
  return found;
}

}  // namespace QXFontService_NS::type1
