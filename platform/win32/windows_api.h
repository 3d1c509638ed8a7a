#pragma once

// The system's own headers, for .cpp files of this folder alone: their macros must not reach the seam's headers, which
// is why this one comes last. Handles of windows and of graphics have 32 significant bits on every Windows and so are
// Longs as they are; wider ones go through a HandleMap.

#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>
//
#include <ole2.h>
#include <olectl.h>

#include <cstdint>

#include "platform/text.h"

namespace strandline::win32 {

inline Long ToNumber(const void* handle) { return static_cast<Long>(reinterpret_cast<std::intptr_t>(handle)); }

template <class T>
T ToHandle(Long number) {
  return reinterpret_cast<T>(static_cast<std::intptr_t>(number));
}

inline RECT ToRECT(const Rect& rectangle) { return {rectangle.left, rectangle.top, rectangle.right, rectangle.bottom}; }
inline Rect FromRECT(const RECT& rectangle) {
  return {static_cast<Long>(rectangle.left), static_cast<Long>(rectangle.top), static_cast<Long>(rectangle.right),
          static_cast<Long>(rectangle.bottom)};
}

inline const wchar_t* Wide(const String& text) { return reinterpret_cast<const wchar_t*>(text.c_str()); }
inline String FromWide(const wchar_t* text, std::size_t length) {
  return TextView(reinterpret_cast<const char16_t*>(text), length);
}
inline String FromBstr(BSTR text) { return text ? FromWide(text, SysStringLen(text)) : String(); }
inline BSTR ToBstr(const String& text) {
  return SysAllocStringLen(Wide(text), static_cast<UINT>(text.Length()));  // null without memory
}

// The module that this code is part of, a program or a DLL.
HMODULE OwnModule();

// A counted reference to a COM object.
template <class T>
class ComRef {
 public:
  ComRef() = default;
  explicit ComRef(T* object) : mObject(object) {
    if (mObject) mObject->AddRef();
  }
  ComRef(const ComRef& other) : ComRef(other.mObject) {}
  ComRef(ComRef&& other) noexcept : mObject(other.mObject) { other.mObject = nullptr; }
  ComRef& operator=(ComRef other) noexcept {
    T* const mine = mObject;
    mObject = other.mObject;
    other.mObject = mine;
    return *this;
  }
  ~ComRef() {
    if (mObject) mObject->Release();
  }
  T* get() const { return mObject; }
  T* operator->() const { return mObject; }
  explicit operator bool() const { return mObject != nullptr; }
  // Where a call is to put a reference; what was there is let go.
  T** Put() {
    *this = ComRef();
    return &mObject;
  }
  void** PutVoid() { return reinterpret_cast<void**>(Put()); }

 private:
  T* mObject = nullptr;
};

}  // namespace strandline::win32
