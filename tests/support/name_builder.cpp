#include "support/name_builder.h"

#include "support/be_bytes.h"

namespace qxtest {

std::string utf16Bytes(std::u16string_view text) {
  return BeBytes().utf16(text).str();
}

NameBuilder& NameBuilder::windows(unsigned nameId, std::u16string_view text, unsigned language,
                                  unsigned encoding) {
  return record(3, encoding, language, nameId, utf16Bytes(text));
}

NameBuilder& NameBuilder::macintosh(unsigned nameId, std::string_view bytes, unsigned language,
                                    unsigned encoding) {
  return record(1, encoding, language, nameId, std::string(bytes));
}

NameBuilder& NameBuilder::record(unsigned platform, unsigned encoding, unsigned language,
                                 unsigned nameId, std::string bytes) {
  const auto offset = static_cast<unsigned>(strings_.size());
  strings_ += bytes;
  return rawRecord(platform, encoding, language, nameId, static_cast<unsigned>(bytes.size()),
                   offset);
}

NameBuilder& NameBuilder::rawRecord(unsigned platform, unsigned encoding, unsigned language,
                                    unsigned nameId, unsigned length, unsigned offset) {
  records_.push_back({platform, encoding, language, nameId, length, offset});
  return *this;
}

NameBuilder& NameBuilder::latin(std::u16string_view family, std::u16string_view style) {
  const std::u16string name(family);
  const std::u16string full = name + u" " + std::u16string(style);
  const std::u16string postScript = name + u"-" + std::u16string(style);
  return windows(1, name)
      .windows(2, style)
      .windows(3, full + u" 1.0")
      .windows(4, full)
      .windows(6, postScript);
}

NameBuilder& NameBuilder::statedCount(unsigned count) {
  statedCount_ = static_cast<int>(count);
  return *this;
}

std::string NameBuilder::build() const {
  const auto count = statedCount_ < 0 ? static_cast<unsigned>(records_.size())
                                      : static_cast<unsigned>(statedCount_);
  BeBytes out;
  out.u16(0).u16(count).u16(static_cast<unsigned>(6 + 12 * records_.size()));
  for (const Record& record : records_) {
    out.u16(record.platform).u16(record.encoding).u16(record.language).u16(record.nameId);
    out.u16(record.length).u16(record.offset);
  }
  return out.bytes(strings_).str();
}

}  // namespace qxtest
