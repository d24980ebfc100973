#include "common/xml/doctype.h"

#include <algorithm>
#include <string_view>

namespace QXCommonNS::xml {
namespace {

constexpr std::string_view kDoctype = "<!DOCTYPE";

// Goes through the prologue piece by piece, by the few marks that tell where a piece ends.
class PrologueScan {
 public:
  explicit PrologueScan(std::string_view text) : text_(text) {}

  [[nodiscard]] std::size_t position() const { return at_; }
  [[nodiscard]] bool atEnd() const { return at_ >= text_.size(); }
  [[nodiscard]] char current() const { return text_[at_]; }
  void step() { ++at_; }

  [[nodiscard]] bool standsHere(std::string_view mark) const {
    return text_.substr(at_, mark.size()) == mark;
  }
  // Passes over a piece that is opened by `opening`, to behind `closing` or to the end.
  bool pass(std::string_view opening, std::string_view closing) {
    if (!standsHere(opening)) return false;
    const std::size_t end = text_.find(closing, at_ + opening.size());
    at_ = end == std::string_view::npos ? text_.size() : end + closing.size();
    return true;
  }
  bool passHidden() { return pass("<!--", "-->") || pass("<?", "?>"); }
  bool passQuoted() { return pass("\"", "\"") || pass("'", "'"); }

 private:
  std::string_view text_;
  std::size_t at_ = 0;
};

bool isBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

bool findDoctype(PrologueScan& scan) {
  while (!scan.atEnd() && !scan.standsHere(kDoctype)) {
    if (scan.passHidden()) continue;
    if (!isBlank(scan.current())) return false;
    scan.step();
  }
  return !scan.atEnd();
}

void passSubset(PrologueScan& scan) {
  while (!scan.atEnd() && scan.current() != ']') {
    if (!scan.passHidden() && !scan.passQuoted()) scan.step();
  }
}

void passDoctype(PrologueScan& scan) {
  while (!scan.atEnd() && scan.current() != '>') {
    if (scan.current() == '[') passSubset(scan);
    if (!scan.atEnd() && !scan.passQuoted()) scan.step();
  }
  if (!scan.atEnd()) scan.step();
}

}  // namespace

void cutDoctype(std::string& document) {
  PrologueScan scan(document);
  if (!findDoctype(scan)) return;
  const std::size_t start = scan.position();
  passDoctype(scan);
  document.erase(start, scan.position() - start);
}

}  // namespace QXCommonNS::xml
