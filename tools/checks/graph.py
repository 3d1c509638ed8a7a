"""Who calls whom in the core, and which functions can raise."""

from collections import defaultdict

# Operations of the seam that raise by their contract; what implements them stands outside the core.
SEAM = ["Dispatch::Invoke", "Dispatch::Elements", "Dispatch::AsPicture", "Enumerator::Next", "Components::CreateObject",
        "Clipboard::GetText", "Clipboard::SetText", "Clipboard::SetPicture", "RunTime::DateFromText"]

# The frame itself, in which errors end.
FRAME = ("foundation/procedure.h", "foundation/procedure.cpp")

# Procedures that have a frame and raise nevertheless, into the tail of their caller.
RAISING_PROCEDURES = {
    "cCustomClipboard::pbNotReady": "the caller's tail tells that the clipboard isn't open",
    "Advertisement::convertDate": "a bad date is an error of the settings in which it stands",
    "AlphaBlender::AlphaBlend": "a fade ends in silence, a switch of windows tells the error: the caller decides",
    "AdvertisementsFactory::AlphaBlend": "hands on to AlphaBlender::AlphaBlend",
}


class Graph:
    """A call of a virtual function is a call of each function that overrides it, too."""

    def __init__(self, core, raising_procedures=RAISING_PROCEDURES):
        self.functions = core.functions
        self._raising_procedures = raising_procedures
        self._by_name = defaultdict(list)
        self._overriders = defaultdict(list)
        for function in self.functions.values():
            self._by_name[function.name.rsplit("::", 1)[-1]].append(function)
            for base in function.overrides:
                self._overriders[base].append(function.id)
        self._callers = defaultdict(list)
        for function in self.functions.values():
            for call in function.calls:
                for target in self._targets(function, call):
                    self._callers[target].append((function, call))
        self._raising = self._find_raising()

    def callers(self, function):
        """The places from which it is called: (caller, line)."""
        return [(caller, call.line) for caller, call in self._callers.get(function.id, []) if call.is_call]

    def uncaught(self, function):
        """Its calls that can raise outside of a STEP: (name, line), each once."""
        return sorted({(call.name, call.line) for call in function.calls if not call.guarded and
                       any(target in self._raising for target in self._targets(function, call))})

    def _targets(self, function, call):
        if call.target.startswith("name:"):
            # Inside a template, where the compiler doesn't know yet: the function of that name in the same file.
            todo = [each.id for each in self._by_name.get(call.name, []) if each.file == function.file]
        else:
            todo = [call.target]
        targets = []
        while todo:
            each = todo.pop()
            if each not in targets:
                targets.append(each)
                todo += self._overriders.get(each, [])
        return targets

    def _find_raising(self):
        raising = {"throw"} | {target for target in self._callers if _raises_by_contract(target)}
        todo = list(raising)
        while todo:
            for function, call in self._callers.get(todo.pop(), []):
                if call.guarded or function.id in raising or function.file in FRAME:
                    continue
                if function.kind in ("plain", "lambda") or function.name in self._raising_procedures:
                    raising.add(function.id)
                    todo.append(function.id)
        return raising


def _raises_by_contract(target):
    if target.startswith("c:@N@strandline@F@Raise#"):
        return True
    # Running out of memory raises as well: wherever a text is made.
    return target.startswith("c:@N@strandline@S@String@F@String#$@N@std@S@basic_string_view") or any(
        f"@N@strandline@S@{each.replace('::', '@F@')}#" in target for each in SEAM)
