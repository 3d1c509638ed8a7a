#include "platform/desk/global_memory.h"

#include <utility>

namespace strandline::desk {

Long GlobalMemory::Alloc(Long size) {
  if (size < 0 || size > kLargestBlock) return 0;
  Block block;
  block.bytes.resize(static_cast<std::size_t>(size));
  block.maker = mMisuses->Who();
  mBlocks.emplace(++mLastHandle, std::move(block));
  return mLastHandle;
}

GlobalMemory::Block* GlobalMemory::Use(Long memory, const char* call) {
  const auto found = mBlocks.find(memory);
  if (found != mBlocks.end()) return &found->second;
  if (memory == 0) return nullptr;
  const bool wasMade = memory > kFirstHandle && memory <= mLastHandle;
  mMisuses->Record(wasMade ? "dead: " + NameOf(memory) : "no such memory", memory, call);
  return nullptr;
}

void GlobalMemory::RecordOwned(Long memory, Owner owner, const char* call) {
  const char* const what = owner == Owner::kStream ? "owned by a stream: " : "owned by the clipboard: ";
  mMisuses->Record(what + NameOf(memory), memory, call);
}

Byte* GlobalMemory::Lock(Long memory) {
  Block* block = Use(memory, "GlobalLock");
  if (!block || block->bytes.empty()) return nullptr;
  ++block->locks;
  return block->bytes.data();
}

Long GlobalMemory::Unlock(Long memory) {
  Block* block = Use(memory, "GlobalUnlock");
  if (!block || block->locks == 0) return 0;
  return --block->locks == 0 ? 0 : 1;
}

Long GlobalMemory::Size(Long memory) {
  const Block* block = Use(memory, "GlobalSize");
  return block ? static_cast<Long>(block->bytes.size()) : 0;
}

Long GlobalMemory::Free(Long memory) {
  const Block* block = Use(memory, "GlobalFree");
  if (!block) return memory;
  if (block->owner != Owner::kNobody) {
    RecordOwned(memory, block->owner, "GlobalFree");
    return memory;
  }
  mBlocks.erase(memory);
  return 0;
}

bool GlobalMemory::TakeOwnership(Long memory, Owner owner, const char* call) {
  Block* block = Use(memory, call);
  if (!block) return false;
  if (block->owner != Owner::kNobody) {
    RecordOwned(memory, block->owner, call);
    return false;
  }
  block->owner = owner;
  return true;
}

void GlobalMemory::FreeOwned(Long memory) { mBlocks.erase(memory); }

std::vector<Byte> GlobalMemory::TakeBytes(Long memory, const char* call) {
  Block* block = Use(memory, call);
  if (!block) return {};
  if (block->locks != 0) mMisuses->Record("locked: " + NameOf(memory), memory, call);
  std::vector<Byte> bytes = std::move(block->bytes);
  mBlocks.erase(memory);
  return bytes;
}

Long GlobalMemory::AddOwned(std::vector<Byte> bytes) {
  Block block;
  block.bytes = std::move(bytes);
  block.owner = Owner::kClipboard;
  mBlocks.emplace(++mLastHandle, std::move(block));
  return mLastHandle;
}

const std::vector<Byte>* GlobalMemory::BytesOf(Long memory, const char* call) {
  const Block* block = Use(memory, call);
  return block ? &block->bytes : nullptr;
}

const std::vector<Byte>* GlobalMemory::FindBytes(Long memory) const {
  const auto found = mBlocks.find(memory);
  return found == mBlocks.end() ? nullptr : &found->second.bytes;
}

std::vector<std::string> GlobalMemory::Lost() const {
  std::vector<std::string> lost;
  for (const auto& [handle, block] : mBlocks) {
    if (block.owner == Owner::kClipboard) continue;
    std::string line = NameOf(handle);
    if (!block.maker.empty()) line += ", " + block.maker;
    lost.push_back(std::move(line));
  }
  return lost;
}

}  // namespace strandline::desk
