#pragma once

#include <unicode/unistr.h>

#include <cstdint>
#include <string>
#include <vector>

namespace qxbench {

/// Running text, as long as asked for: sentences of the Universal Declaration of Human Rights,
/// again and again.
std::string latinText(std::size_t characters);
std::string arabicText(std::size_t characters);

/// Pieces of a text: its words, or lines of about 80 characters that end between words.
std::vector<std::string> wordsOf(const std::string& text);
std::vector<std::string> linesOf(const std::string& text);

/// A text as the service takes it, and as the peers take it.
struct SampleText {
  icu::UnicodeString utf16;
  std::vector<std::uint32_t> codes;
};
SampleText sampleOf(const std::string& utf8);

/// A text of the given codes as running text of Chinese or Japanese draws them: few ideographs
/// most of the time, 3,000 in all, by Zipf's law.
SampleText zipfText(std::vector<std::uint32_t> ideographs, std::size_t characters);

}  // namespace qxbench
