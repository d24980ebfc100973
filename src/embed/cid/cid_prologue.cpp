#include "embed/cid/cid_prologue.h"

#include <cstdint>
#include <utility>

#include "embed/cff/operands.h"

namespace QXFontService_NS::cid {

using embed::itemOf;
using embed::Keyword;
using QXCommonNS::QXValue;

namespace {

using Replacement = std::pair<std::string_view, std::string>;

// Replaces each `@name@` of a fixed text. A name that is not given is replaced by nothing.
std::string fill(std::string_view text, const std::vector<Replacement>& replacements) {
  std::string out;
  for (std::size_t at = text.find('@'); at != std::string_view::npos; at = text.find('@')) {
    const std::size_t end = text.find('@', at + 1);
    const std::string_view name = text.substr(at + 1, end - at - 1);
    out += text.substr(0, at);
    for (const auto& [key, value] : replacements)
      if (key == name) out += value;
    text.remove_prefix(end + 1);
  }
  return out.append(text);
}

std::string textOf(const icu::UnicodeString& text) {
  std::string out;
  return text.toUTF8String(out);
}

std::string textOf(const QXValue& value) {
  return textOf(value.toString());
}

/// Elements 1, 2, 3 ... of an operand map up to the first that is missing.
template <class Take>
void forEachElement(const QXValue& map, Take take) {
  for (int n = 1; !FS_Operand(map, n).isNull(); ++n) take(FS_Operand(map, n));
}

std::string joined(const QXValue& map, int count, std::string_view instead) {
  std::string out;
  for (int n = 1; n <= count; ++n) {
    const QXValue& element = FS_Operand(map, n);
    if (element.isNull()) return std::string(instead);
    if (n > 1) out += ' ';
    out += textOf(element);
  }
  return out;
}

std::string deltas(const QXValue& map) {
  std::string out;
  forEachElement(map, [&out](const QXValue& element) { out += ' ' + textOf(element); });
  return out;
}

std::string sums(const QXValue& map) {
  std::string out;
  std::uint32_t sum = 0;
  forEachElement(map, [&](const QXValue& element) {
    sum += static_cast<std::uint32_t>(element.getIntegerValue());
    out += ' ' + std::to_string(static_cast<std::int32_t>(sum));
  });
  return out;
}

std::string privateLine(const PrivateLine& line, const QXValue& value) {
  if (value.isNull()) return {};
  std::string out(line.before);
  if (line.form == PrivateForm::deltas) {
    out += deltas(value);
  } else if (line.form == PrivateForm::sums) {
    out += sums(value);
  } else {
    out += textOf(value);
  }
  out += line.after;
  if (line.form == PrivateForm::languageGroup && value.getIntegerValue() == 1) out += kRndStemUp;
  return out;
}

std::string head(const CidPrologue& prologue) {
  return fill(
      kPrologueHead,
      {{"fontName", prologue.fontName},
       {"registry", textOf(prologue.systemInfo.Registry)},
       {"ordering", textOf(prologue.systemInfo.Ordering)},
       {"supplement", std::to_string(prologue.systemInfo.Supplement)},
       {"fontBBox", joined(itemOf(prologue.topDict, Keyword::kFontBBox), 4, kDefaultFontBBox)},
       {"glyphs", std::to_string(prologue.glyphs)},
       {"gdBytes", std::to_string(prologue.layout.gdBytes)},
       {"fdBytes", std::to_string(prologue.layout.fdBytes)},
       {"fontDicts", std::to_string(prologue.privates.size())}});
}

// All Font DICTs have the matrix of the font and one list of Subrs.
std::string fontDict(const CidPrologue& prologue, std::size_t index) {
  std::string out =
      fill(kFontDictHead, {{"index", std::to_string(index)},
                           {"fontMatrix", joined(itemOf(prologue.topDict, Keyword::kFontMatrix), 6,
                                                 kDefaultFontMatrix)}});
  for (const PrivateLine& line : kPrivateLines)
    out += privateLine(line, itemOf(prologue.privates[index], line.keyword));
  out += fill(kFontDictTail, {{"flexProcedures", std::string(kFlexProcedures)},
                              {"subrs", std::to_string(prologue.subrs)},
                              {"sdBytes", std::to_string(prologue.layout.sdBytes)},
                              {"subrMapOffset", std::to_string(prologue.layout.subrMapOffset())}});
  return out;
}

}  // namespace

std::string prologueText(const CidPrologue& prologue) {
  std::string out = head(prologue);
  for (std::size_t i = 0; i < prologue.privates.size(); ++i) out += fontDict(prologue, i);
  return out + fill(kPrologueTail, {{"blockSize", std::to_string(prologue.layout.size())}});
}

}  // namespace QXFontService_NS::cid
