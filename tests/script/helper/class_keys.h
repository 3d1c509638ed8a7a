#pragma once

// Where the system looks for classes by name and number. They go to the user's own part of the registry; where the
// system doesn't look there (Wine 8 doesn't), to the part of the machine.

#include "platform/text.h"

struct _GUID;

namespace strandline::script {

// The ProgID leads to the class from now on. False when nothing of the registry can be written.
bool WriteProgId(const String& progId, const _GUID& id);
void RemoveProgId(const String& progId);

// The class lives in the module of that path.
bool WriteServer(const _GUID& id, const String& modulePath);
void RemoveServer(const _GUID& id);

}  // namespace strandline::script
