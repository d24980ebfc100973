#pragma once

#include <atomic>
#include <cstddef>
#include <type_traits>
#include <utility>

namespace QXCommonNS {

/// A smart pointer over a `QXRCObject`: it holds one reference as long as it lives.
///
/// Two pointers to one object may be used on different threads; one pointer may not.
template <class T>
class QXPtr {
 public:
  /// Points at nothing.
  QXPtr() = default;
  QXPtr(std::nullptr_t) {}  ///< Points at nothing.

  /// Adds a reference of its own to `object`, which may be null.
  QXPtr(T* object) : object_(object) {
    if (object_ != nullptr) object_->refCount.fetch_add(1, std::memory_order_relaxed);
  }

  QXPtr(const QXPtr& other) : QXPtr(other.object_) {}
  QXPtr(QXPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}

  /// A pointer to a base class from one to a derived class.
  template <class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
  QXPtr(const QXPtr<U>& other) : QXPtr(other.get()) {}

  ~QXPtr() {
    if (object_ != nullptr) object_->release();
  }

  QXPtr& operator=(QXPtr other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }

  /// The object, borrowed; null when the pointer is empty.
  [[nodiscard]] T* get() const { return object_; }
  T* operator->() const { return object_; }  ///< Of a pointer that is not empty.
  T& operator*() const { return *object_; }  ///< Of a pointer that is not empty.
  explicit operator bool() const { return object_ != nullptr; }  ///< Whether it is not empty.

  friend bool operator==(const QXPtr& a, const QXPtr& b) { return a.object_ == b.object_; }

 private:
  T* object_ = nullptr;
};

}  // namespace QXCommonNS
