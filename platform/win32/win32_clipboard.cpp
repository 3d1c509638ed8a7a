#include "platform/win32/win32_clipboard.h"

#include <algorithm>
#include <cstring>
#include <string>

#include "platform/win32/windows_api.h"
//
#include <shellapi.h>
#include <shlobj.h>

namespace strandline::win32 {

namespace {

bool IsFormat(Long format) { return format > 0 && format <= clipboardformat::kLast; }

// Formats whose data are a graphics object and no memory.
bool IsObject(Long format) {
  switch (format) {
    case CF_BITMAP:
    case CF_PALETTE:
    case CF_ENHMETAFILE:
    case CF_DSPBITMAP:
    case CF_DSPENHMETAFILE:
      return true;
    default:
      return format >= CF_GDIOBJFIRST && format <= CF_GDIOBJLAST;
  }
}

// A memory block's bytes as long as this lives.
class Locked {
 public:
  explicit Locked(HGLOBAL block) : mBlock(block), mBytes(block ? ::GlobalLock(block) : nullptr) {}
  ~Locked() {
    if (mBytes) ::GlobalUnlock(mBlock);
  }
  Locked(const Locked&) = delete;
  Locked& operator=(const Locked&) = delete;

  void* Bytes() const { return mBytes; }
  std::size_t Size() const { return mBytes ? ::GlobalSize(mBlock) : 0; }

 private:
  HGLOBAL mBlock;
  void* mBytes;
};

// The clipboard, open to this program, closed when this goes: what is thrown meanwhile would leave it shut to all
// others.
class OpenUntilHere {
 public:
  OpenUntilHere() = default;
  ~OpenUntilHere() { ::CloseClipboard(); }
  OpenUntilHere(const OpenUntilHere&) = delete;
  OpenUntilHere& operator=(const OpenUntilHere&) = delete;
};

// Whether the list has names and ends inside its block: the shell takes both on trust.
template <class Character>
bool HasNames(const Byte* bytes, std::size_t begin, std::size_t size) {
  Character former = 0;
  for (std::size_t at = begin; at + sizeof(Character) <= size; at += sizeof(Character)) {
    Character c;
    std::memcpy(&c, bytes + at, sizeof c);
    if (c == 0 && former == 0) return at != begin;
    former = c;
  }
  return false;
}

bool IsDropList(HGLOBAL block) {
  const Locked locked(block);
  const auto* const bytes = static_cast<const Byte*>(locked.Bytes());
  DROPFILES record;
  if (locked.Size() < sizeof record) return false;
  std::memcpy(&record, bytes, sizeof record);
  return record.fWide ? HasNames<char16_t>(bytes, record.pFiles, locked.Size())
                      : HasNames<char>(bytes, record.pFiles, locked.Size());
}

HGLOBAL NewBlock(const void* bytes, std::size_t size) {
  HGLOBAL block = ::GlobalAlloc(GMEM_MOVEABLE, size);
  const Locked locked(block);
  if (locked.Bytes()) std::memcpy(locked.Bytes(), bytes, size);
  return block;
}

String WideFromAnsi(const char* text, std::size_t size) {
  const int length = static_cast<int>(::strnlen(text, size));
  std::u16string wide(static_cast<std::size_t>(length), u'\0');
  const int count = ::MultiByteToWideChar(CP_ACP, 0, text, length, reinterpret_cast<wchar_t*>(wide.data()), length);
  wide.resize(static_cast<std::size_t>(count));
  return wide;
}

// With the NUL that ends it.
std::string AnsiFromWide(const String& text) {
  const int length = text.Length() + 1;
  const int size = ::WideCharToMultiByte(CP_ACP, 0, Wide(text), length, nullptr, 0, nullptr, nullptr);
  std::string ansi(static_cast<std::size_t>(size), '\0');
  ::WideCharToMultiByte(CP_ACP, 0, Wide(text), length, ansi.data(), size, nullptr, nullptr);
  return ansi;
}

}  // namespace

Long Win32Clipboard::OpenClipboard(Long hwnd) {
  const bool opened = ::OpenClipboard(ToHandle<HWND>(hwnd)) != FALSE;
  mIsOpen = mIsOpen || opened;
  return opened;
}

Long Win32Clipboard::CloseClipboard() {
  const Long closed = ::CloseClipboard();
  mIsOpen = false;
  mMemory.ForgetHandedOver();
  return closed;
}

Long Win32Clipboard::EmptyClipboard() {
  const Long emptied = ::EmptyClipboard();
  if (emptied) mMemory.ForgetClipboard();
  return emptied;
}

Long Win32Clipboard::SetClipboardData(Long format, Long data) {
  if (!IsFormat(format)) return 0;
  const bool isObject = IsObject(format);
  void* const handle = isObject ? ToHandle<HANDLE>(data) : mMemory.FindOwn(data);
  // Without data the system would ask for them later. A block of no bytes is none to it, and not to all of its
  // versions.
  if (!handle || (!isObject && ::GlobalSize(handle) == 0)) return 0;
  if (!::SetClipboardData(static_cast<UINT>(format), handle)) return 0;
  if (!isObject) mMemory.HandOver(data);
  return data;
}

Long Win32Clipboard::GetClipboardData(Long format) {
  if (!IsFormat(format)) return 0;
  void* const handle = ::GetClipboardData(static_cast<UINT>(format));
  return IsObject(format) ? ToNumber(handle) : mMemory.Lend(handle);
}

Long Win32Clipboard::RegisterClipboardFormatA(const String& name) {
  return static_cast<Long>(::RegisterClipboardFormatW(Wide(name)));
}

// With room for every name, since some versions give none where it doesn't fit.
String Win32Clipboard::GetClipboardFormatNameA(Long format, Long limit) {
  wchar_t name[256];
  if (limit <= 0 || format < clipboardformat::kFirstNamed || format > clipboardformat::kLast) return {};
  const int length = ::GetClipboardFormatNameW(static_cast<UINT>(format), name, static_cast<int>(std::size(name)));
  return FromWide(name, static_cast<std::size_t>(std::min<Long>(length, limit - 1)));
}

Long Win32Clipboard::EnumClipboardFormats(Long format) {
  return static_cast<Long>(::EnumClipboardFormats(static_cast<UINT>(format)));
}
Long Win32Clipboard::CountClipboardFormats() { return ::CountClipboardFormats(); }
Long Win32Clipboard::IsClipboardFormatAvailable(Long format) {
  return ::IsClipboardFormatAvailable(static_cast<UINT>(format));
}

Long Win32Clipboard::DragQueryFileA(Long drop, Long index, Long limit, String& name) {
  const auto block = static_cast<HDROP>(mMemory.Find(drop));
  if (!block || limit < 0 || !IsDropList(block)) return 0;
  const UINT file = static_cast<UINT>(index);
  const UINT length = ::DragQueryFileW(block, file, nullptr, 0);
  if (index == -1 || limit == 0 || length == 0) return static_cast<Long>(length);
  std::wstring text(length + 1, L'\0');
  ::DragQueryFileW(block, file, text.data(), length + 1);
  name = FromWide(text.data(), std::min<std::size_t>(length, static_cast<std::size_t>(limit) - 1));
  return name.Length();
}

void Win32Clipboard::OpenForItself() {
  if (mIsOpen || !::OpenClipboard(nullptr)) RaiseCannotOpenClipboard();
}

void Win32Clipboard::OpenForText(Long format) {
  if (format != CF_TEXT && format != CF_UNICODETEXT) Raise(errors::kInvalidArgument);
  OpenForItself();
}

String Win32Clipboard::GetText(Long format) {
  OpenForText(format);
  const OpenUntilHere open;
  const Locked locked(::GetClipboardData(static_cast<UINT>(format)));
  if (!locked.Bytes()) return {};
  if (format == CF_TEXT) return WideFromAnsi(static_cast<const char*>(locked.Bytes()), locked.Size());
  const auto* const wide = static_cast<const wchar_t*>(locked.Bytes());
  return FromWide(wide, ::wcsnlen(wide, locked.Size() / sizeof(wchar_t)));
}

void Win32Clipboard::SetText(const String& text, Long format) {
  OpenForText(format);
  const OpenUntilHere open;
  if (::EmptyClipboard()) mMemory.ForgetClipboard();
  const std::string ansi = AnsiFromWide(text);
  HGLOBAL block = format == CF_TEXT
                      ? NewBlock(ansi.data(), ansi.size())
                      : NewBlock(text.c_str(), (static_cast<std::size_t>(text.Length()) + 1) * sizeof(wchar_t));
  const bool set = block && ::SetClipboardData(static_cast<UINT>(format), block);
  if (block && !set) ::GlobalFree(block);
  if (!set) Raise(errors::kOutOfMemory);
}

void Win32Clipboard::SetPicture(const Picture& picture) {
  const auto bitmap = ToHandle<HBITMAP>(Required(picture).Handle());
  struct Copy {
    HGDIOBJ bitmap;
    ~Copy() {
      if (bitmap) ::DeleteObject(bitmap);
    }
  } copy{::CopyImage(bitmap, IMAGE_BITMAP, 0, 0, 0)};
  if (!copy.bitmap) RaiseInvalidPicture();
  OpenForItself();
  if (::EmptyClipboard()) mMemory.ForgetClipboard();
  const bool set = ::SetClipboardData(CF_BITMAP, copy.bitmap) != nullptr;
  if (set) copy.bitmap = nullptr;
  ::CloseClipboard();
  if (!set) Raise(errors::kOutOfMemory);
}

}  // namespace strandline::win32
