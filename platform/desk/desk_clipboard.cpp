#include "platform/desk/desk_clipboard.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "platform/desk/desk_clipboard_text.h"

namespace strandline::desk {

namespace {

using namespace clipboardformat;

constexpr Long kFailure = 0;
constexpr Long kSuccess = 1;

// The system has taken the first of the numbers for itself.
constexpr Long kFirstGiven = kFirstNamed + 1;
constexpr std::size_t kLongestName = 255;

// Which texts the clipboard makes of which, the better source first.
constexpr struct {
  Long format;
  Long sources[2];
} kTextsMade[] = {
    {kText, {kUnicodeText, kOemText}}, {kOemText, {kUnicodeText, kText}}, {kUnicodeText, {kText, kOemText}}};

// English of the United States, 0x0409.
constexpr Byte kLocaleBytes[] = {0x09, 0x04, 0x00, 0x00};

String Cut(const String& text, Long limit) {
  return limit <= 0 ? TextView() : text.View().substr(0, static_cast<std::size_t>(limit - 1));
}

}  // namespace

DeskClipboard::~DeskClipboard() { EmptyNow(); }

// ---- Opening.

Long DeskClipboard::OpenClipboard(Long hwnd) {
  if (mHeldByAnother || (hwnd != 0 && !mWindows.IsWindow(hwnd))) return kFailure;
  if (mOpener && *mOpener != hwnd) return kFailure;
  mOpener = hwnd;
  return kSuccess;
}

Long DeskClipboard::CloseClipboard() {
  if (!mOpener) return kFailure;
  mOpener.reset();
  for (Entry& entry : mEntries) {
    if (entry.handedOver == 0) continue;
    entry.bytes = mMemory->TakeBytes(std::exchange(entry.handedOver, 0), "CloseClipboard");
    EndText(entry.format, entry.bytes);
  }
  AddTextFormats();
  return kSuccess;
}

Long DeskClipboard::EmptyClipboard() {
  if (!mOpener) return kFailure;
  EmptyNow();
  return kSuccess;
}

void DeskClipboard::EmptyNow() {
  for (Entry& entry : mEntries) Release(entry);
  mEntries.clear();
}

void DeskClipboard::AddTextFormats() {
  const auto text =
      std::find_if(mEntries.begin(), mEntries.end(), [](const Entry& entry) { return IsTextFormat(entry.format); });
  if (text == mEntries.end()) return;
  if (!Find(kLocale)) {
    Entry locale;
    locale.format = kLocale;
    locale.madeOf = text->format;
    mEntries.push_back(std::move(locale));
  }
  for (const auto& [format, sources] : kTextsMade) {
    if (Find(format)) continue;
    for (const Long source : sources) {
      const Entry* const found = Find(source);
      if (!found || found->madeOf != 0) continue;
      Entry made;
      made.format = format;
      made.madeOf = source;
      mEntries.push_back(std::move(made));
      break;
    }
  }
}

// ---- Data.

DeskClipboard::Entry* DeskClipboard::Find(Long format) {
  const auto found =
      std::find_if(mEntries.begin(), mEntries.end(), [format](const Entry& entry) { return entry.format == format; });
  return found == mEntries.end() ? nullptr : &*found;
}

DeskClipboard::Entry& DeskClipboard::Cleared(Long format) {
  for (Entry& entry : mEntries) {
    if (entry.madeOf == format) TakeBackLoan(entry);  // what was lent shows the former text
  }
  Entry* entry = Find(format);
  if (entry) {
    Release(*entry);
  } else {
    entry = &mEntries.emplace_back();
  }
  *entry = Entry();
  entry->format = format;
  return *entry;
}

Long DeskClipboard::SetClipboardData(Long format, Long data) {
  if (!mOpener || format <= 0 || format > kLast) return kFailure;
  const bool taken = format == kBitmap ? TakePicture(data) : TakeMemory(format, data);
  return taken ? data : kFailure;
}

bool DeskClipboard::TakePicture(Long bitmap) {
  if (ObjectTable::IsStock(bitmap)) return false;
  Bitmap* const found = mObjects->Use<Bitmap>(bitmap, "SetClipboardData");
  if (!found) return false;
  if (IsLent(bitmap)) {
    mObjects->Record("owned by the clipboard: " + mObjects->NameOf(bitmap), bitmap, "SetClipboardData");
    return false;
  }
  if (found->selectedInto != 0) {
    mObjects->Record("selected: " + mObjects->NameOf(bitmap), bitmap, "SetClipboardData");
    return false;
  }
  Surface picture = std::move(found->surface);
  mObjects->Remove(bitmap);
  Cleared(kBitmap).picture = std::move(picture);
  return true;
}

bool DeskClipboard::TakeMemory(Long format, Long memory) {
  const std::vector<Byte>* const bytes = mMemory->BytesOf(memory, "SetClipboardData");
  if (!bytes || bytes->empty()) return false;
  if (!mMemory->TakeOwnership(memory, GlobalMemory::Owner::kClipboard, "SetClipboardData")) return false;
  Cleared(format).handedOver = memory;
  return true;
}

std::vector<Byte> DeskClipboard::BytesOf(const Entry& entry) {
  if (entry.format == kLocale && entry.madeOf != 0) return {std::begin(kLocaleBytes), std::end(kLocaleBytes)};
  if (entry.madeOf != 0) {
    const Entry* const source = Find(entry.madeOf);
    return source ? EncodeText(entry.format, DecodeText(source->format, BytesOf(*source))) : std::vector<Byte>();
  }
  const std::vector<Byte>* const handedOver = mMemory->FindBytes(entry.handedOver);
  return handedOver ? *handedOver : entry.bytes;
}

Long DeskClipboard::GetClipboardData(Long format) {
  Entry* const entry = mOpener ? Find(format) : nullptr;
  if (!entry) return kFailure;
  if (format == kBitmap) return LendPicture(*entry);
  if (entry->lent == 0) entry->lent = mMemory->AddOwned(BytesOf(*entry));
  return entry->lent;
}

// Somebody who deleted a lent bitmap is found out the next time that the clipboard looks at it.
Long DeskClipboard::LendPicture(Entry& entry) {
  if (entry.lent != 0 && mObjects->IsLive(entry.lent)) return entry.lent;
  TakeBackLoan(entry);
  entry.lent = mObjects->Add(Bitmap{entry.picture}, "GetClipboardData");
  return entry.lent;
}

bool DeskClipboard::IsLent(Long bitmap) const {
  return std::any_of(mEntries.begin(), mEntries.end(), [bitmap](const Entry& entry) {
    return entry.format == kBitmap && entry.lent != 0 && entry.lent == bitmap;
  });
}

void DeskClipboard::Release(Entry& entry) {
  if (entry.handedOver != 0) mMemory->FreeOwned(std::exchange(entry.handedOver, 0));
  TakeBackLoan(entry);
}

void DeskClipboard::TakeBackLoan(Entry& entry) {
  const Long lent = std::exchange(entry.lent, 0);
  if (lent == 0) return;
  if (entry.format != kBitmap) return mMemory->FreeOwned(lent);
  const Bitmap* const bitmap = mObjects->Find<Bitmap>(lent);
  const std::string name = mObjects->NameOf(lent);
  if (!bitmap) return mObjects->Record("deleted, but owned by the clipboard: " + name, lent, "GetClipboardData");
  if (bitmap->selectedInto != 0) return mObjects->Record("selected: " + name, lent, "EmptyClipboard");
  mObjects->Remove(lent);
}

// ---- Formats.

Long DeskClipboard::RegisterClipboardFormatA(const String& name) {
  const TextView wanted = name.View().substr(0, name.View().find(u'\0'));
  if (wanted.empty() || wanted.size() > kLongestName) return kFailure;
  const Long next = kFirstGiven + static_cast<Long>(mNames.size());
  const String key = LowerCase(wanted);
  const auto found = mNumbers.find(key);
  if (found != mNumbers.end()) return found->second;
  if (next > kLast) return kFailure;
  mNames.push_back(wanted);
  mNumbers.emplace(key, next);
  return next;
}

String DeskClipboard::GetClipboardFormatNameA(Long format, Long limit) {
  const Long index = format - kFirstGiven;
  if (format < kFirstGiven || static_cast<std::size_t>(index) >= mNames.size()) return {};
  return Cut(mNames[static_cast<std::size_t>(index)], limit);
}

Long DeskClipboard::EnumClipboardFormats(Long format) {
  if (!mOpener) return kFailure;
  if (format == 0) return mEntries.empty() ? 0 : mEntries.front().format;
  const Entry* const found = Find(format);
  return found && found != &mEntries.back() ? found[1].format : 0;
}

Long DeskClipboard::DragQueryFileA(Long drop, Long index, Long limit, String& name) {
  const std::vector<Byte>* const bytes = limit < 0 ? nullptr : mMemory->BytesOf(drop, "DragQueryFileA");
  if (!bytes) return 0;
  const std::vector<String> names = DecodeDropList(*bytes);
  if (index == -1) return static_cast<Long>(names.size());
  if (index < 0 || static_cast<std::size_t>(index) >= names.size()) return 0;
  const String& found = names[static_cast<std::size_t>(index)];
  if (limit == 0) return found.Length();
  name = Cut(found, limit);
  return name.Length();
}

// ---- The run time's own object.

void DeskClipboard::RequireFree() const {
  if (mOpener || mHeldByAnother) RaiseCannotOpenClipboard();
}

void DeskClipboard::RequireFreeFor(Long format) const {
  if (format != kText && format != kUnicodeText) Raise(errors::kInvalidArgument);
  RequireFree();
}

String DeskClipboard::GetText(Long format) {
  RequireFreeFor(format);
  const Entry* const found = Find(format);
  return found ? DecodeText(format, BytesOf(*found)) : String();
}

void DeskClipboard::SetText(const String& text, Long format) {
  RequireFreeFor(format);
  EmptyNow();
  Cleared(format).bytes = EncodeText(format, text);
  AddTextFormats();
}

void DeskClipboard::SetPicture(const Picture& picture) {
  const Bitmap* const bitmap = mObjects->Use<Bitmap>(Required(picture).Handle(), "SetPicture");
  if (!bitmap) RaiseInvalidPicture();
  RequireFree();
  Surface copy = bitmap->surface;  // before the emptying, with which the bitmap may go
  EmptyNow();
  Cleared(kBitmap).picture = std::move(copy);
}

// ---- Other programs.

bool DeskClipboard::HoldByAnother(bool held) {
  if (mOpener) return false;
  mHeldByAnother = held;
  return true;
}

bool DeskClipboard::SetFromOutside(Long format, std::span<const Byte> bytes) {
  if (mOpener || bytes.empty() || format <= 0 || format > kLast || format == kBitmap) return false;
  if (IsTextFormat(format)) RemoveTexts();
  Entry& entry = Cleared(format);
  entry.bytes.assign(bytes.begin(), bytes.end());
  EndText(format, entry.bytes);
  AddTextFormats();
  return true;
}

// Another text isn't to stand beside what was made of the former one.
void DeskClipboard::RemoveTexts() {
  std::erase_if(mEntries, [this](Entry& entry) {
    const bool isText = IsTextFormat(entry.format) || entry.madeOf != 0;
    if (isText) Release(entry);
    return isText;
  });
}

bool DeskClipboard::SetTextFromOutside(TextView text) { return SetFromOutside(kText, EncodeText(kText, text)); }

bool DeskClipboard::SetRichTextFromOutside(TextView text) {
  return SetFromOutside(RegisterClipboardFormatA(u"Rich Text Format"), EncodeText(kText, text));
}

bool DeskClipboard::EmptyFromOutside() {
  if (mOpener) return false;
  EmptyNow();
  return true;
}

String DeskClipboard::FormatName(Long format) {
  switch (format) {
    case kText:
      return u"Text";
    case kBitmap:
      return u"Bitmap Picture";
    case kOemText:
      return u"Text (OEM)";
    case kUnicodeText:
      return u"Text (Unicode)";
    default:
      const String name = GetClipboardFormatNameA(format, kLongestName + 1);
      return name.IsEmpty() ? Concat({u"Format ", DecimalText(format)}) : name;
  }
}

std::vector<DeskClipboard::Item> DeskClipboard::Content() {
  std::vector<Item> content;
  for (const Entry& entry : mEntries) {
    if (entry.madeOf != 0) continue;
    Item item;
    item.format = entry.format;
    item.name = FormatName(entry.format);
    item.isPicture = entry.format == kBitmap;
    item.bytes = BytesOf(entry);
    item.text = DecodeText(entry.format, item.bytes);
    content.push_back(std::move(item));
  }
  return content;
}

}  // namespace strandline::desk
