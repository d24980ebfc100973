#include "support/cff_builder.h"

#include <utility>

#include "support/be_bytes.h"

namespace qxtest {
namespace {

char byteOf(int value) {
  return static_cast<char>(value & 0xFF);
}

// The forms that DICT operands and charstring numbers share.
bool appendShort(std::string& out, int value) {
  if (value >= -107 && value <= 107) {
    out += byteOf(value + 139);
  } else if (value >= 108 && value <= 1131) {
    out += byteOf((value - 108) / 256 + 247);
    out += byteOf(value - 108);
  } else if (value >= -1131 && value <= -108) {
    out += byteOf((-value - 108) / 256 + 251);
    out += byteOf(-value - 108);
  } else {
    return false;
  }
  return true;
}

void appendInt16(std::string& out, int value) {
  out += byteOf(28);
  out += byteOf(value >> 8);
  out += byteOf(value);
}

void appendOperator(std::string& out, unsigned code) {
  if (code > 0xFF) out += byteOf(static_cast<int>(code >> 8));
  out += byteOf(static_cast<int>(code));
}

int nibbleOf(std::string_view text, std::size_t& at) {
  const char c = text[at++];
  if (c >= '0' && c <= '9') return c - '0';
  if (c == '.') return 0xA;
  if (c == '-') return 0xE;
  if (at < text.size() && text[at] == '-') {
    ++at;
    return 0xC;
  }
  return 0xB;
}

unsigned offSizeFor(std::size_t last) {
  if (last < 0x100) return 1;
  if (last < 0x10000) return 2;
  return last < 0x1000000 ? 3 : 4;
}

void appendOffset(BeBytes& out, std::size_t value, unsigned size) {
  for (unsigned i = size; i-- > 0;) out.u8(static_cast<unsigned>(value >> (8 * i)));
}

}  // namespace

std::string cffIndex(const std::vector<std::string>& entries, unsigned offSize) {
  BeBytes out;
  out.u16(static_cast<unsigned>(entries.size()));
  if (entries.empty()) return out.str();
  std::size_t offset = 1;
  for (const std::string& entry : entries) offset += entry.size();
  const unsigned size = offSize != 0 ? offSize : offSizeFor(offset);
  out.u8(size);
  appendOffset(out, offset = 1, size);
  for (const std::string& entry : entries) appendOffset(out, offset += entry.size(), size);
  for (const std::string& entry : entries) out.text(entry);
  return out.str();
}

DictBuilder& DictBuilder::number(int value, DictForm form) {
  if (form == DictForm::shortest && appendShort(data_, value)) return *this;
  const bool fits = value >= -32768 && value <= 32767;
  if (form == DictForm::twoBytes || (form == DictForm::shortest && fits)) {
    appendInt16(data_, value);
    return *this;
  }
  data_ += byteOf(29);
  for (int shift = 24; shift >= 0; shift -= 8) data_ += byteOf(value >> shift);
  return *this;
}

DictBuilder& DictBuilder::numbers(const std::vector<int>& values) {
  for (int value : values) number(value);
  return *this;
}

DictBuilder& DictBuilder::real(std::string_view text) {
  data_ += byteOf(30);
  int half = -1;
  for (std::size_t at = 0; at < text.size();) {
    const int nibble = nibbleOf(text, at);
    if (half < 0) {
      half = nibble;
    } else {
      data_ += byteOf(half * 16 + nibble);
      half = -1;
    }
  }
  data_ += byteOf(half < 0 ? 0xFF : half * 16 + 0xF);
  return *this;
}

DictBuilder& DictBuilder::op(unsigned code) {
  appendOperator(data_, code);
  return *this;
}

DictBuilder& DictBuilder::raw(std::string_view bytes) {
  data_ += bytes;
  return *this;
}

CharStringBuilder& CharStringBuilder::number(int value) {
  if (!appendShort(data_, value)) appendInt16(data_, value);
  return *this;
}

CharStringBuilder& CharStringBuilder::numbers(const std::vector<int>& values) {
  for (int value : values) number(value);
  return *this;
}

CharStringBuilder& CharStringBuilder::fixed(std::uint32_t bits) {
  data_ += BeBytes().u8(255).u32(bits).str();
  return *this;
}

CharStringBuilder& CharStringBuilder::op(unsigned code) {
  appendOperator(data_, code);
  return *this;
}

CharStringBuilder& CharStringBuilder::raw(std::string_view bytes) {
  data_ += bytes;
  return *this;
}

CharStringBuilder& CharStringBuilder::call(unsigned code, int subroutine, std::size_t count) {
  const int bias = count < 1240 ? 107 : count < 33900 ? 1131 : 32768;
  return number(subroutine - bias).op(code);
}

std::string CffBuilder::charsetFormat0(const std::vector<int>& sids) {
  BeBytes out;
  out.u8(0);
  for (int sid : sids) out.i16(sid);
  return out.str();
}

std::string CffBuilder::charsetRanges(int format, const std::vector<std::pair<int, int>>& ranges) {
  BeBytes out;
  out.u8(static_cast<unsigned>(format));
  for (const auto& [first, left] : ranges) {
    out.i16(first);
    if (format == 1) {
      out.u8(static_cast<unsigned>(left));
    } else {
      out.i16(left);
    }
  }
  return out.str();
}

std::string CffBuilder::fdSelect3(const std::vector<std::pair<int, int>>& ranges, int sentinel) {
  BeBytes out;
  out.u8(3).u16(static_cast<unsigned>(ranges.size()));
  for (const auto& [first, fd] : ranges) out.i16(first).u8(static_cast<unsigned>(fd));
  out.i16(sentinel);
  return out.str();
}

std::string CffBuilder::fdSelect0(const std::vector<int>& fds) {
  BeBytes out;
  out.u8(0);
  for (int fd : fds) out.u8(static_cast<unsigned>(fd));
  return out.str();
}

std::string CffBuilder::build() {
  // The width of shortest operands depends on the offsets, and those on the widths.
  at_.clear();
  std::string table = layOut();
  for (int round = 0; round < 8; ++round) {
    std::string again = layOut();
    if (again == table) break;
    table = std::move(again);
  }
  return table;
}

std::size_t CffBuilder::at(const std::string& name) const {
  const auto found = at_.find(name);
  return found == at_.end() ? 0 : found->second;
}

std::string CffBuilder::layOut() {
  std::string out = header;
  append(out, "Names", cffIndex(names));
  const std::string dict = topDict();
  const std::string topIndex = cffIndex({dict});
  append(out, "TopIndex", topIndex);
  at_["TopDict"] = out.size() - dict.size();
  append(out, "Strings", cffIndex(strings));
  append(out, "GlobalSubrs", cffIndex(globalSubrs));
  for (const std::string& part : order) appendPart(out, part);
  at_["End"] = out.size();
  return out + trailer;
}

std::string CffBuilder::topDict() const {
  DictBuilder dict;
  if (cid) dict.numbers({391, 392, 0}).op(0x0C1E);
  dict.raw(top.str());
  if (!encoding.empty()) offsetOperator(dict, "Encoding", 16, offsetForm);
  if (!charset.empty()) {
    offsetOperator(dict, "charset", 15, offsetForm);
  } else if (predefinedCharset >= 0) {
    dict.number(predefinedCharset, offsetForm).op(15);
  }
  if (!fdSelect.empty()) offsetOperator(dict, "FDSelect", 0x0C25, offsetForm);
  if (writeCharStrings) offsetOperator(dict, "CharStrings", 17, offsetForm);
  if (cid) {
    offsetOperator(dict, "FDArray", 0x0C24, privateOffsetForm);
  } else if (!privates.empty()) {
    dict.number(static_cast<int>(privateBytes(privates[0]).size()));
    offsetOperator(dict, "Private", 18, privateOffsetForm);
  }
  return dict.str();
}

void CffBuilder::offsetOperator(DictBuilder& dict, const std::string& name, unsigned code,
                                DictForm form) const {
  dict.number(static_cast<int>(at(name)), form).op(code);
}

void CffBuilder::append(std::string& out, const std::string& name, const std::string& bytes) {
  at_[name] = out.size();
  out += bytes;
}

void CffBuilder::appendPart(std::string& out, const std::string& part) {
  if (part == "Encoding" && !encoding.empty()) append(out, part, encoding);
  if (part == "charset" && !charset.empty()) append(out, part, charset);
  if (part == "FDSelect" && !fdSelect.empty()) append(out, part, fdSelect);
  if (part == "CharStrings" && writeCharStrings) append(out, part, cffIndex(glyphs));
  if (part == "FDArray" && cid) appendFontDicts(out);
  if (part == "Private" && !cid && !privates.empty()) {
    at_["Private"] = out.size();
    appendPrivate(out, 0);
  }
}

void CffBuilder::appendPrivate(std::string& out, std::size_t index) {
  const std::string number = std::to_string(index);
  append(out, "Private" + number, privateBytes(privates[index]));
  if (!privates[index].subrs.empty())
    append(out, "Subrs" + number, cffIndex(privates[index].subrs));
}

void CffBuilder::appendFontDicts(std::string& out) {
  std::vector<std::string> dicts;
  for (std::size_t i = 0; i < privates.size(); ++i) dicts.push_back(fontDictBytes(i));
  append(out, "FDArray", cffIndex(dicts));
  for (std::size_t i = 0; i < privates.size(); ++i) appendPrivate(out, i);
}

// The Subrs offset counts from the Private DICT itself, and its operand is part of it.
std::string CffBuilder::privateBytes(const CffPrivate& from) const {
  DictBuilder dict = from.dict;
  if (from.subrs.empty()) return dict.str();
  const std::size_t size = dict.str().size() + 6;
  return dict.number(static_cast<int>(size), DictForm::fourBytes).op(19).str();
}

std::string CffBuilder::fontDictBytes(std::size_t index) const {
  DictBuilder dict = privates[index].fontDict;
  dict.number(static_cast<int>(privateBytes(privates[index]).size()));
  offsetOperator(dict, "Private" + std::to_string(index), 18, privates[index].form);
  return dict.str();
}

}  // namespace qxtest
