#include "platform/wrappers/operations.h"

#include <algorithm>

namespace strandline {
namespace {

#define OPERATION(kind, Result, failure, Name, hint, parameters, arguments, noted) {#Name, CallKind::kind},
constexpr Operation kOperations[] = {
#include "platform/wrappers/clipboard_operations.inc"
#include "platform/wrappers/components_operations.inc"
#include "platform/wrappers/graphics_operations.inc"
#include "platform/wrappers/modules_operations.inc"
#include "platform/wrappers/pictures_operations.inc"
#include "platform/wrappers/runtime_operations.inc"
#include "platform/wrappers/windows_operations.inc"
    {"createsubclasser", CallKind::kHook}, {"subclass", CallKind::kHook}, {"unsubclass", CallKind::kHook},
    {"previous", CallKind::kHook},         {"message", CallKind::kHook},
};
#undef OPERATION

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

}  // namespace

std::span<const Operation> AllOperations() { return kOperations; }

const Operation* FindOperation(std::string_view name) {
  const auto found = std::find_if(std::begin(kOperations), std::end(kOperations), [name](const Operation& operation) {
    return std::equal(name.begin(), name.end(), operation.name.begin(), operation.name.end(),
                      [](char a, char b) { return Lower(a) == Lower(b); });
  });
  return found == std::end(kOperations) ? nullptr : found;
}

}  // namespace strandline
