#pragma once

#include <span>
#include <string_view>

namespace strandline {

// What an operation of the seam is about; a journal chooses by it.
enum class CallKind {
  kWindow,   // windows, activation and the clipboard
  kPointer,  // mouse and capture
  kMessage,  // messages sent, waited for, dispatched
  kTimer,
  kContext,         // contexts of windows: GetDC, BeginPaint and their ends
  kGraphicsObject,  // memory contexts, bitmaps, brushes, regions
  kDrawing,         // pixels and colours
  kMemory,          // memory blocks and streams
  kPicture,
  kModule,  // modules and resources
  kComponent,
  kRunTime,
  kHook,  // "createsubclasser", "subclass", "unsubclass", "previous" and, of what came in, "message"
};

struct Operation {
  std::string_view name;
  CallKind kind;
};

// All operations under which calls are recorded and can be made to fail.
std::span<const Operation> AllOperations();
// Letters A to Z without case; null for what is none.
const Operation* FindOperation(std::string_view name);

}  // namespace strandline
