#include "support/registry_text.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <iostream>
#include <sstream>

#include "qxcommon/text.h"

namespace qxtest {
namespace {

using QXCommonNS::RegistryValue;

[[noreturn]] void refuse(const std::string& line) {
  std::cerr << "not a line of a registry: " << line << '\n';
  std::abort();
}

std::u16string utf16Of(const std::string& text) {
  const QXCommonNS::UnicodeString wide = QXCommonNS::UnicodeString::fromUTF8(text);
  return {wide.getBuffer(), static_cast<std::size_t>(wide.length())};
}

void appendZeroEnded(std::vector<std::byte>& data, const std::string& text) {
  for (const char16_t unit : utf16Of(text) + u'\0') {
    data.push_back(static_cast<std::byte>(unit & 0xFF));
    data.push_back(static_cast<std::byte>(unit >> 8));
  }
}

// A quoted text at `at`, which moves behind it.
std::string quotedAt(const std::string& line, std::size_t& at) {
  const std::size_t end = at < line.size() && line[at] == '"' ? line.find('"', at + 1) : line.npos;
  if (end == line.npos) refuse(line);
  std::string text = line.substr(at + 1, end - at - 1);
  at = end + 1;
  return text;
}

std::vector<std::byte> multiText(const std::string& line, std::size_t at) {
  std::vector<std::byte> data;
  appendZeroEnded(data, quotedAt(line, at));
  while (at < line.size() && line[at] == ',') appendZeroEnded(data, quotedAt(line, ++at));
  appendZeroEnded(data, "");
  return data;
}

void takeTyped(const std::string& line, std::size_t at, RegistryValue& value) {
  std::istringstream rest(line.substr(at));
  char colon = 0;
  if (!(rest >> std::dec >> value.type >> colon) || colon != ':') refuse(line);
  for (unsigned byte = 0; rest >> std::hex >> byte;)
    value.data.push_back(static_cast<std::byte>(byte));
}

RegistryValue valueOf(const std::string& line) {
  std::size_t at = 0;
  RegistryValue value;
  value.name = utf16Of(quotedAt(line, at));
  if (at >= line.size() || line[at++] != '=') refuse(line);
  if (line.compare(at, 6, "multi:") == 0) {
    value.type = RegistryValue::kMultiText;
    value.data = multiText(line, at + 6);
  } else if (line.compare(at, 5, "type ") == 0) {
    takeTyped(line, at + 5, value);
  } else {
    value.type = RegistryValue::kText;
    appendZeroEnded(value.data, quotedAt(line, at));
  }
  return value;
}

std::string trimmed(const std::string& line) {
  const std::size_t first = line.find_first_not_of(" \t\r");
  if (first == line.npos) return {};
  return line.substr(first, line.find_last_not_of(" \t\r") - first + 1);
}

}  // namespace

std::string loweredKey(std::string_view text) {
  std::string key(text);
  std::transform(key.begin(), key.end(), key.begin(), [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  });
  return key;
}

std::map<std::string, std::vector<RegistryValue>> readRegistryText(std::string_view text) {
  std::map<std::string, std::vector<RegistryValue>> keys;
  std::vector<RegistryValue>* key = nullptr;
  std::istringstream lines{std::string(text)};
  for (std::string line; std::getline(lines, line);) {
    line = trimmed(line);
    if (line.empty()) continue;
    if (line.front() == '[' && line.back() == ']') {
      key = &keys[loweredKey(line.substr(1, line.size() - 2))];
    } else if (key != nullptr) {
      key->push_back(valueOf(line));
    } else {
      refuse(line);
    }
  }
  return keys;
}

}  // namespace qxtest
