#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/desk/misuse_log.h"
#include "platform/values.h"

namespace strandline::desk {

// Memory blocks by handle. A handle is the same in every run and never used twice; a use of a dead one is recorded and
// fails. A block may be owned, by a stream that frees it at its end or by the clipboard: then nobody else may free it.
class GlobalMemory {
 public:
  static constexpr Long kLargestBlock = 256 << 20;  // bytes

  enum class Owner { kNobody, kStream, kClipboard };

  explicit GlobalMemory(std::shared_ptr<MisuseLog> misuses) : mMisuses(std::move(misuses)) {}

  Long Alloc(Long size);     // bytes, all zero at first; 0 when it failed
  Byte* Lock(Long memory);   // null when it failed, and for a block of no bytes
  Long Unlock(Long memory);  // 0: no lock is left
  Long Size(Long memory);    // bytes; 0 when it failed
  Long Free(Long memory);    // 0, or the handle when it failed

  // False when the block is dead or has an owner.
  bool TakeOwnership(Long memory, Owner owner, const char* call);
  void FreeOwned(Long memory);
  // As FreeOwned, for the bytes. A block that is still locked is a misuse.
  std::vector<Byte> TakeBytes(Long memory, const char* call);
  // A new block of the clipboard's.
  Long AddOwned(std::vector<Byte> bytes);

  // Null, and recorded, when there is no such block.
  const std::vector<Byte>* BytesOf(Long memory, const char* call);
  // Without a record: null when there is no such block.
  const std::vector<Byte>* FindBytes(Long memory) const;

  // These leave out the clipboard's: nobody is to free them.
  int LiveBlocks() const { return static_cast<int>(Lost().size()); }
  // "memory 3, MakePicture", in the order of making.
  std::vector<std::string> Lost() const;

 private:
  struct Block {
    std::vector<Byte> bytes;
    int locks = 0;
    Owner owner = Owner::kNobody;
    std::string maker;
  };
  static constexpr Long kFirstHandle = 0x50000000;

  static std::string NameOf(Long memory) { return "memory " + std::to_string(memory - kFirstHandle); }
  Block* Use(Long memory, const char* call);
  void RecordOwned(Long memory, Owner owner, const char* call);

  std::shared_ptr<MisuseLog> mMisuses;
  std::map<Long, Block> mBlocks;
  Long mLastHandle = kFirstHandle;
};

}  // namespace strandline::desk
