#pragma once

#include <map>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "platform/clipboard.h"
#include "platform/desk/global_memory.h"
#include "platform/desk/object_table.h"
#include "platform/desk/window_system.h"

namespace strandline::desk {

// The clipboard, and the other programs that use it too.
//
// Faithful: who may do what while it is open, and by whom; the order of formats; texts made of one another; who owns
// the data. A block that was put there may be read until the closing and is dead from then on; a bitmap is dead at
// once. What is read is lent, as a block or bitmap of the clipboard's own. Simplified: no format but text is made of
// another; a window that dies with the clipboard open leaves it open. Left out: data on demand, viewers, palettes and
// metafiles.
class DeskClipboard final : public Clipboard {
 public:
  // What is there in one format.
  struct Item {
    Long format = 0;
    String name;  // "Text", "Bitmap Picture", "Rich Text Format"
    bool isPicture = false;
    String text;              // the bytes as a text; of a picture none
    std::vector<Byte> bytes;  // of a picture none
  };

  // The windows outlive this.
  DeskClipboard(WindowSystem& windows, std::shared_ptr<GlobalMemory> memory, std::shared_ptr<ObjectTable> objects)
      : mWindows(windows), mMemory(std::move(memory)), mObjects(std::move(objects)) {}
  // What it lent may no longer be used; other blocks and bitmaps may outlive it.
  ~DeskClipboard() override;

  // Another program opens it and closes it again. False, and nothing done, while this program has it open.
  bool HoldByAnother(bool held);
  // Another program's data, beside what is there in other formats; a text is there alone of its kind. False, and
  // nothing done, while this program has it open, and for no bytes or a format that takes none. A text ends with a NUL.
  bool SetFromOutside(Long format, std::span<const Byte> bytes);
  bool SetTextFromOutside(TextView text);
  bool SetRichTextFromOutside(TextView text);
  bool EmptyFromOutside();
  // In the order in which it came, without what the clipboard made itself.
  std::vector<Item> Content();

  // Whether this program has it open.
  bool IsOpen() const { return mOpener.has_value(); }
  // A bitmap that was read from the clipboard and is still its own: alive, and nobody else's to delete.
  bool IsLent(Long bitmap) const;

  Long OpenClipboard(Long hwnd) override;
  Long CloseClipboard() override;
  Long EmptyClipboard() override;
  Long SetClipboardData(Long format, Long data) override;
  Long GetClipboardData(Long format) override;
  Long RegisterClipboardFormatA(const String& name) override;
  String GetClipboardFormatNameA(Long format, Long limit) override;
  Long EnumClipboardFormats(Long format) override;
  Long CountClipboardFormats() override { return static_cast<Long>(mEntries.size()); }
  Long IsClipboardFormatAvailable(Long format) override { return Find(format) != nullptr; }
  // A limit below 0: 0.
  Long DragQueryFileA(Long drop, Long index, Long limit, String& name) override;
  String GetText(Long format) override;
  void SetText(const String& text, Long format) override;
  void SetPicture(const Picture& picture) override;

 private:
  struct Entry {
    Long format = 0;
    Long madeOf = 0;  // the clipboard made it of the text in this format
    std::vector<Byte> bytes;
    Surface picture;
    Long handedOver = 0;  // the block, until the closing takes its bytes
    Long lent = 0;        // the block or bitmap, once somebody has read it
  };

  Entry* Find(Long format);
  // The entry of that format without anything in it, at its place or a new one at the end.
  Entry& Cleared(Long format);
  std::vector<Byte> BytesOf(const Entry& entry);
  bool TakePicture(Long bitmap);
  bool TakeMemory(Long format, Long memory);
  Long LendPicture(Entry& entry);
  void Release(Entry& entry);
  void TakeBackLoan(Entry& entry);
  void EmptyNow();
  void AddTextFormats();
  void RemoveTexts();
  void RequireFree() const;
  void RequireFreeFor(Long format) const;
  String FormatName(Long format);

  WindowSystem& mWindows;
  const std::shared_ptr<GlobalMemory> mMemory;
  const std::shared_ptr<ObjectTable> mObjects;
  std::vector<Entry> mEntries;
  std::vector<String> mNames;       // of the formats with names, in the order of their numbers
  std::map<String, Long> mNumbers;  // by the name in lower case
  std::optional<Long> mOpener;      // the window, or 0
  bool mHeldByAnother = false;
};

}  // namespace strandline::desk
