#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qxtest {

/// Writes a `name` table (format 0); records stand in the order in which they were added.
class NameBuilder {
 public:
  static constexpr unsigned kEnglish = 0x409;

  /// A Windows record (platform 3) of UTF-16 text.
  NameBuilder& windows(unsigned nameId, std::u16string_view text, unsigned language = kEnglish,
                       unsigned encoding = 1);
  /// A Macintosh record (platform 1) of bytes.
  NameBuilder& macintosh(unsigned nameId, std::string_view bytes, unsigned language = 0,
                         unsigned encoding = 0);
  NameBuilder& record(unsigned platform, unsigned encoding, unsigned language, unsigned nameId,
                      std::string bytes);
  /// A record that points where it says, whatever stands there; offset from the string area.
  NameBuilder& rawRecord(unsigned platform, unsigned encoding, unsigned language, unsigned nameId,
                         unsigned length, unsigned offset);
  /// Family, subfamily, unique id, full and PostScript name in English.
  NameBuilder& latin(std::u16string_view family, std::u16string_view style = u"Regular");
  NameBuilder& statedCount(unsigned count);

  [[nodiscard]] std::string build() const;

 private:
  struct Record {
    unsigned platform, encoding, language, nameId;
    unsigned length, offset;
  };
  std::vector<Record> records_;
  std::string strings_;
  int statedCount_ = -1;
};

/// The text as big-endian UTF-16.
std::string utf16Bytes(std::u16string_view text);

}  // namespace qxtest
