#include "type1/program/program_parts.h"

#include <array>
#include <cstddef>
#include <string_view>
#include <utility>

#include "type1/eexec/eexec.h"
#include "type1/program/segment.h"
#include "type1/program/text_program.h"

namespace QXFontService_NS::type1 {
namespace {

constexpr std::size_t kLeadBytes = 4;  // random ones, which may look like anything

/// Takes a segment of this kind off the front of a program; false where there is none.
bool takeSegment(std::string_view& program, std::byte kind, std::string& out) {
  if (program.size() < kSegmentHeaderSize) return false;
  std::array<std::byte, kSegmentHeaderSize> header{};
  for (std::size_t i = 0; i < header.size(); ++i) header[i] = static_cast<std::byte>(program[i]);
  if (header[0] != kSegmentMark || header[1] != kind) return false;
  program.remove_prefix(kSegmentHeaderSize);
  const std::string_view bytes = program.substr(0, segmentLength(header));
  out.append(bytes);
  program.remove_prefix(bytes.size());
  return true;
}

ProgramParts partsOfSegments(std::string_view program) {
  ProgramParts parts;
  if (!takeSegment(program, kTextSegment, parts.clearText)) return parts;
  while (takeSegment(program, kBinarySegment, parts.privatePart)) continue;
  return parts;
}

ProgramParts partsOfText(std::string_view program) {
  TextProgram text = splitTextProgram(program);
  return {std::move(text.clearText), std::move(text.privatePart)};
}

}  // namespace

ProgramParts readProgramParts(std::istream& program) {
  const std::string whole = readWhole(program);
  const bool hasSegments = !whole.empty() && static_cast<std::byte>(whole[0]) == kSegmentMark;
  ProgramParts parts = hasSegments ? partsOfSegments(whole) : partsOfText(whole);
  decryptEexec(parts.privatePart);
  parts.privatePart.erase(0, kLeadBytes);
  return parts;
}

}  // namespace QXFontService_NS::type1
