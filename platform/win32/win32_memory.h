#pragma once

#include <map>

#include "platform/values.h"

namespace strandline::win32 {

// Memory blocks by numbers that stand for them, since their handles needn't fit a Long; and of each block who is to
// free it: the caller who made it, or the clipboard. What isn't the caller's can be read and not be freed.
class Win32Memory {
 public:
  Long Alloc(Long flags, Long size);
  Byte* Lock(Long memory) const;
  Long Unlock(Long memory) const;
  Long Size(Long memory) const;  // bytes
  Long Free(Long memory);        // 0, or the number when it failed

  // The block itself; null when there is none under that number.
  void* Find(Long memory) const;
  // As Find, but null also for one that the clipboard owns.
  void* FindOwn(Long memory) const;
  // Another owner frees it now and the number is no longer used.
  void Forget(Long memory) { mBlocks.erase(memory); }

  // The clipboard has taken the block; the number stays until the clipboard is closed.
  void HandOver(Long memory);
  // The number of a block that the clipboard has given to be read.
  Long Lend(void* block);
  void ForgetHandedOver();
  // All that was lent or handed over is gone.
  void ForgetClipboard();

 private:
  enum class Owner { kCaller, kClipboardUntilClosed, kClipboard };
  struct Block {
    void* handle = nullptr;
    Owner owner = Owner::kCaller;
  };

  const Block* Known(Long memory) const;

  std::map<Long, Block> mBlocks;
  Long mLast = 0;
};

}  // namespace strandline::win32
