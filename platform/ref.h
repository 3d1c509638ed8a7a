#pragma once

// Shared ownership on one thread. An object counts its owners; when the last lets go, Terminated() runs while the
// object is still whole, then it is deleted. Owners that come and go during Terminated() (a running procedure keeps its
// object alive) don't start a second death.

#include <cstdint>
#include <utility>

namespace strandline {

class RefCounted {
 public:
  RefCounted() = default;
  RefCounted(const RefCounted&) = delete;
  RefCounted& operator=(const RefCounted&) = delete;

  void AddRef() const { ++mRefs; }
  // Lets go without ending the object: for a constructor that held it, before anybody owns it.
  void Unhold() const { --mRefs; }
  void Release() const {
    if (--mRefs == 0) {
      mRefs = kDying;
      const_cast<RefCounted*>(this)->Terminated();
      delete this;
    }
  }

 protected:
  virtual ~RefCounted() = default;
  // The place to let go of what the object owns, in the order in which that must happen.
  virtual void Terminated() {}

 private:
  static constexpr std::int32_t kDying = 1 << 30;
  mutable std::int32_t mRefs = 0;
};

template <class T>
class Ref {
 public:
  Ref() = default;
  Ref(std::nullptr_t) {}
  Ref(T* object) : mObject(object) {
    if (mObject) mObject->AddRef();
  }
  Ref(const Ref& other) : Ref(other.mObject) {}
  Ref(Ref&& other) noexcept : mObject(std::exchange(other.mObject, nullptr)) {}
  template <class U>
  Ref(const Ref<U>& other) : Ref(static_cast<T*>(other.get())) {}
  ~Ref() {
    if (mObject) mObject->Release();
  }
  Ref& operator=(Ref other) noexcept {
    std::swap(mObject, other.mObject);
    return *this;
  }

  T* get() const { return mObject; }
  T* operator->() const { return mObject; }
  T& operator*() const { return *mObject; }
  explicit operator bool() const { return mObject != nullptr; }
  friend bool operator==(const Ref& a, const Ref& b) { return a.mObject == b.mObject; }

 private:
  T* mObject = nullptr;
};

template <class T, class... Arguments>
Ref<T> New(Arguments&&... arguments) {
  return Ref<T>(new T(std::forward<Arguments>(arguments)...));
}

}  // namespace strandline
