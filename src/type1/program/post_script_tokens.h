#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace QXFontService_NS::type1 {

/// Steps through the tokens of a PostScript text (PostScript Language Reference, 3.2). Strings and
/// procedures are one token each.
class PostScriptTokens {
 public:
  explicit PostScriptTokens(std::string_view text) : text_(text) {}

  /// The next token; empty at the end.
  std::string_view next();
  /// The next token where it is a plain decimal integer; nothing, with the token taken, else.
  std::optional<int> integer();
  /// Whether the text goes on with these characters behind its blanks.
  [[nodiscard]] bool continuesWith(std::string_view expected);
  /// Takes bytes behind one separating byte; nothing where they are not all there.
  std::optional<std::string_view> bytes(int count);

 private:
  void skipBlanks();
  void skipRegular();
  void skipString();
  void skipProcedure();

  std::string_view text_;
  std::size_t at_ = 0;
};

}  // namespace QXFontService_NS::type1
