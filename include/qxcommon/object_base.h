#pragma once

#include "qxcommon/export.h"
#include "qxcommon/text.h"

namespace QXCommonNS {

/// The root of all classes with a run-time identity.
///
/// Every class of the tree has a fixed 32-bit id. The ids are part of the binary interface and
/// never change. All operations may be called from any thread.
class QX_EXPORT QXObjectBase {
 protected:
  virtual ~QXObjectBase();

 public:
  /// The id of this class.
  static constexpr unsigned int kClassID = 0xDF537371;

  QXObjectBase(const QXObjectBase&) = delete;
  QXObjectBase& operator=(const QXObjectBase&) = delete;

  /// The id of the object's own class.
  [[nodiscard]] virtual unsigned int getClassID() const;

  /// Whether `id` is that of the object's own class or of one of its ancestors.
  [[nodiscard]] virtual bool isKindOf(unsigned int id) const;

  /// The name of the object's own class, such as "QXObjectBase".
  [[nodiscard]] virtual UnicodeString getClassName() const;

 protected:
  QXObjectBase() = default;
};

}  // namespace QXCommonNS
