"""Every procedure begins with METHOD or PROCEDURE, and every error in it meets a STEP.

A function of an unnamed namespace (or a `static` one) may do without a frame: an error in it goes on to its caller. So
each function that can raise is called inside a STEP, an ATTEMPT or a CONDITION, or by another function without a frame,
of which the same holds. What can raise is found by following the calls down to `Raise` and to the operations of the
seam that raise.
"""

import re

from .graph import RAISING_PROCEDURES, Graph
from .model import in_procedure_folders

PLACE = "tools/checks/frames.py"

# Functions that others can name and that have no frame, and why. A file stands for all functions in it.
FRAMELESS = [
    (r"foundation/(procedure|reporter|received_arguments)\.(h|cpp)", "part of the frame and of the automation door"),
    (r"foundation/(event_source|class_object|log_text)\.(h|cpp)", "means of the procedures, not procedures"),
    (r"ads/pieces\.h", "means of the procedures, not procedures"),
    (r"drawing/units\.(h|cpp)", "arithmetic"),
    (r"addin/(library|operations)\.(h|cpp)", "loads the library and leads calls by name to its procedures"),
    (r"CommonLogger::Log", "hands an observer the text, then runs the procedure of its name"),
    (r"vbwProtector::(vbwProcIn|vbwProcOut|vbwProcInOverflows|ParameterText|SetGlobalReport)", "part of the frame"),
    (r"ProcedureName::TraceName", "part of the frame"),
    (r"Unread", "stands for a variable, and runs nothing"),
    (r".*::(ReportVariables|ReportModule|ReportGlobals|ReportState|ReportToolbars)", "runs inside a dump"),
    (r"\w+::Invoke", "the automation door: its errors go to the caller"),
    (r"\w+::operator Variant", "runs inside a dump"),
    (r"(Main2::Main2|Buttons::Buttons|(\w+)Utilities::\2Utilities|cCustomClipboard::cCustomClipboard|"
     r"AdvertisementsFactory::AdvertisementsFactory)", "runs Class_Initialize"),
    (r"(AdvertisementsCallbackStub|RibbonEvents)::(Advise|Unadvise)|Sink::\w+|FromStub::\w+",
     "connects and hands on events"),
    (r"(Main2|Toolbar)::(ValueChangedWithAds|DownloadedNewAds|getToolbarIconBits|run|BeforeMessage)",
     "hands an event to the procedure of its name"),
    (r"Main2::(ReleaseRibbonEvents|ReleaseCallback)", "ends what Quit and Class_Terminate let go of"),
    (r"Main2::(RegisteredWindows|RegisteredItems)", "a copy of the registry, made in a STEP of the caller"),
    (r"(Buttons::(painter|advert)|Toolbar::parentHwnd|AdvertisementsFactory::callbackToMe|AdFactory)",
     "for other classes of the library: hands out a reference"),
    (r"cCustomClipboard::(IsDataAvailableForFormat|GetTextData|SetTextData)", "takes a number for a variable"),
    (r"CommonWordWindowFunctions::ActiveDocumentHandle", "one form of it drops the flag"),
]

# Calls that can raise outside of a STEP, as "procedure, callee", and why.
UNCAUGHT = {
    "Buttons::Initialize, operator()": "a cell's number that is a constant",
    "Buttons::PaintIcons, operator()": "a cell's number that is a constant",
    "Buttons::PositionCursorOverNewButton, operator()": "a cell's number that is a constant",
    "Buttons::UpdateButtonRects, operator()": "the count is at most the number of cells",
    "Buttons::PaintIcon, operator()": "the condition before has read this very cell",
    "Buttons::HighlightedButtonIndex, FirstOn": "goes through the cells that are there",
    "Buttons::HandleMouseMove, ToBoolean": "inToolbarClientArea gives True or Empty",
    "Buttons::HandleButtonDown, ToBoolean": "inToolbarClientArea gives True or Empty",
    "Buttons::MouseLeftToolbar, ToBoolean": "inToolbarClientArea gives True or Empty",
}


def check(core, frameless=FRAMELESS, uncaught=UNCAUGHT, raising_procedures=RAISING_PROCEDURES):
    graph = Graph(core, raising_procedures)
    wrong = []
    used = set()
    for function in core.functions.values():
        if not in_procedure_folders(function):
            continue
        if function.kind == "plain" and function.linkage == "external" and not _is_frameless(function, frameless, used):
            wrong.append((function.file, function.line,
                          f"{function.name} has no frame: begin it with METHOD or PROCEDURE"))
        if function.kind in ("procedure", "stretch"):
            for name, line in graph.uncaught(function):
                key = f"{function.name}, {name}"
                if name == "Log":
                    continue  # makes its text for an observer only
                if function.name in raising_procedures:
                    used.add(function.name)
                elif key in uncaught:
                    used.add(key)
                else:
                    wrong.append((function.file, line, f"{function.name}: {name} can raise: put it into a STEP"))
    return wrong + [(PLACE, 1, f"the exception {each} is of no use any more: take it off the list")
                    for each in [*(pattern for pattern, _ in frameless), *uncaught, *raising_procedures]
                    if each not in used]


def _is_frameless(function, frameless, used):
    matching = [pattern for pattern, _ in frameless
                if re.fullmatch(pattern, function.file) or re.fullmatch(pattern, function.name)]
    used.update(matching)
    return bool(matching)

