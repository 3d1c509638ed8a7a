#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <new>

namespace strandline::win32 {

// `count` values, made one by one as they are: up to kRoom on the stack, more on the heap. The values of a plain type
// are left as they come.
template <class T, std::size_t kRoom>
class Slots {
 public:
  explicit Slots(std::size_t count) : mCount(count) {
    if (count > kRoom) {
      mMore = std::make_unique<T[]>(count);
    } else {
      std::uninitialized_default_construct_n(Near(), count);
    }
  }
  Slots(const Slots&) = delete;
  Slots& operator=(const Slots&) = delete;
  ~Slots() {
    if (!mMore) std::destroy_n(Near(), mCount);
  }

  T* data() { return mMore ? mMore.get() : Near(); }
  T& operator[](std::size_t i) { return data()[i]; }
  std::size_t size() const { return mCount; }

 private:
  T* Near() { return std::launder(reinterpret_cast<T*>(mRoom.data())); }

  alignas(T) std::array<std::byte, sizeof(T) * kRoom> mRoom;
  std::unique_ptr<T[]> mMore;
  std::size_t mCount;
};

}  // namespace strandline::win32
