#include "platform/win32/win32_memory.h"

#include "platform/win32/windows_api.h"

namespace strandline::win32 {

// The system may use a block's handle again that another program has freed on the clipboard: its number dies here.
Long Win32Memory::Alloc(Long flags, Long size) {
  if (size < 0) return 0;
  void* const handle = ::GlobalAlloc(static_cast<UINT>(flags), static_cast<SIZE_T>(size));
  if (!handle) return 0;
  std::erase_if(mBlocks, [handle](const auto& known) { return known.second.handle == handle; });
  mBlocks.emplace(++mLast, Block{handle, Owner::kCaller});
  return mLast;
}

const Win32Memory::Block* Win32Memory::Known(Long memory) const {
  const auto found = mBlocks.find(memory);
  return found == mBlocks.end() ? nullptr : &found->second;
}

void* Win32Memory::Find(Long memory) const {
  const Block* const block = Known(memory);
  return block ? block->handle : nullptr;
}

void* Win32Memory::FindOwn(Long memory) const {
  const Block* const block = Known(memory);
  return block && block->owner == Owner::kCaller ? block->handle : nullptr;
}

Byte* Win32Memory::Lock(Long memory) const { return static_cast<Byte*>(::GlobalLock(Find(memory))); }
Long Win32Memory::Unlock(Long memory) const { return ::GlobalUnlock(Find(memory)); }
Long Win32Memory::Size(Long memory) const { return static_cast<Long>(::GlobalSize(Find(memory))); }

Long Win32Memory::Free(Long memory) {
  void* const handle = FindOwn(memory);
  if (!handle || ::GlobalFree(handle)) return memory;
  mBlocks.erase(memory);
  return 0;
}

void Win32Memory::HandOver(Long memory) {
  const auto found = mBlocks.find(memory);
  if (found != mBlocks.end()) found->second.owner = Owner::kClipboardUntilClosed;
}

// The system may give the very block that was handed over.
Long Win32Memory::Lend(void* block) {
  if (!block) return 0;
  for (auto& [number, known] : mBlocks) {
    if (known.handle != block) continue;
    known.owner = Owner::kClipboard;
    return number;
  }
  mBlocks.emplace(++mLast, Block{block, Owner::kClipboard});
  return mLast;
}

void Win32Memory::ForgetHandedOver() {
  std::erase_if(mBlocks, [](const auto& known) { return known.second.owner == Owner::kClipboardUntilClosed; });
}

void Win32Memory::ForgetClipboard() {
  std::erase_if(mBlocks, [](const auto& known) { return known.second.owner != Owner::kCaller; });
}

}  // namespace strandline::win32
