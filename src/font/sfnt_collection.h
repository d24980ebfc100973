#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "font/sfnt_font.h"

namespace QXFontService_NS {

/// What the font files with several sfnt fonts share: a record and a FreeType face for each member.
/// It has no class id of its own.
///
/// Members are asked by their number in the file. There is no default member: any other number
/// gets the neutral answer.
class SfntCollection : public SfntFont {
 public:
  using SfntFont::SfntFont;

  int getEntryCount() const override;
  /// The member's face, with its number as the face index; null for a number that is no member.
  /// A face that could not be opened is tried again at the next call.
  FT_Face getFreeTypeFace(int entry) override;

 protected:
  ~SfntCollection() override;

  FS_TrueTypeInfo* record(int entry) const override;

  /// Whether a member may stand in one file with the first one.
  using MemberRule = bool (*)(const FS_TrueTypeInfo& first, const FS_TrueTypeInfo& member);
  static bool anyMember(const FS_TrueTypeInfo&, const FS_TrueTypeInfo&) { return true; }

  /// Reads the members whose offset tables stand at `offsets`, in that order, and keeps them if all
  /// of them can be read, follow the rule, and together stay within `MemberBudget`.
  /// @return false otherwise, with no member kept; `error`, if given, holds what the member that
  ///   failed had to report.
  bool readMembers(QXError* error, std::istream& stream, std::span<const std::int64_t> offsets,
                   MemberRule rule = anyMember);

  /// Reports a failure of the file itself.
  void report(QXError* error, const TableFailure& failure) const;

 private:
  [[nodiscard]] bool isMember(int entry) const { return entry >= 0 && entry < getEntryCount(); }
  std::unique_ptr<FS_TrueTypeInfo> readMember(QXError* error, std::istream& stream,
                                              std::int64_t offset);

  // In this order, so that the records go before the faces.
  std::unique_ptr<contract::FreeTypeFace[]> ftFaces_;
  std::vector<std::unique_ptr<FS_TrueTypeInfo>> entries_;
};

}  // namespace QXFontService_NS
