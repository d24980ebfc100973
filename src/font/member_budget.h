#pragma once

#include <cstdint>
#include <istream>

namespace QXFontService_NS {

class FS_TrueTypeInfo;

/// What the members of one file may take together: `kFileRecordBytes` of memory, and more for a
/// longer file. Members may share their tables, so that a small file could name the same large
/// ones thousands of times over.
class MemberBudget {
 public:
  /// @param file measured, and left at any position.
  explicit MemberBudget(std::istream& file);

  /// Takes off what a member keeps, and what was read of its names. @return false when that is
  /// more than there is: the file is refused then.
  [[nodiscard]] bool spend(const FS_TrueTypeInfo& member);

 private:
  std::uint64_t fileBytes_;
  std::uint64_t left_;
};

}  // namespace QXFontService_NS
