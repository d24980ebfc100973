#include "embed/cff/dict_entries.h"

#include <algorithm>

namespace QXFontService_NS::cff {

using embed::Keyword;
using QXCommonNS::QXValue;

namespace {

QXValue truthOf(const QXValue& operand) {
  return embed::keywordValue(operand != QXValue(0) ? Keyword::kTrue : Keyword::kFalse);
}

QXValue valueOf(const DictOperands& operands, StoredAs form) {
  switch (form) {
    case StoredAs::map:
      return operands.toMap();
    case StoredAs::integer:
      return QXValue(operands.last().getIntegerValue());
    case StoredAs::truth:
      return truthOf(operands.last());
    case StoredAs::number:
      break;
  }
  return operands.last();
}

}  // namespace

void storeOperator(const DictReader& reader, std::span<const DictEntry> entries, QXValue& out) {
  const auto entry = std::find_if(entries.begin(), entries.end(), [&](const DictEntry& candidate) {
    return candidate.op == reader.op();
  });
  if (entry == entries.end()) return;
  if (reader.operands().empty() && entry->form != StoredAs::map) return;
  out.setNamedItem(embed::keywordName(entry->keyword), valueOf(reader.operands(), entry->form));
}

QXValue parseDict(QXCommonNS::bytes::ByteView dict, std::span<const DictEntry> entries) {
  QXValue out = emptyMap();
  DictReader reader(dict);
  while (reader.next()) storeOperator(reader, entries, out);
  return out;
}

}  // namespace QXFontService_NS::cff
