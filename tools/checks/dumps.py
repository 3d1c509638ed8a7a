"""A dump lists a procedure's parameters, then its local variables, each in the order of its declaration."""

import re

from .graph import RAISING_PROCEDURES
from .model import in_procedure_folders

PLACE = "tools/checks/dumps.py"

# Kinds of locals that no dump needs: pattern of the type, and why.
TYPES = [
    (r"__gnu_cxx::__normal_iterator|::_?(const_)?iterator|_Rb_tree.*iterator", "a place in a container"),
    (r"strandline::Walk$", "a place in a collection"),
    (r"strandline::Pieces$", "a place in a text"),
    (r"TextView$|basic_string_view<char16_t", "a view of a text that stands elsewhere"),
    (r"(Byte|unsigned char) \*( ?const)?$", "a place in memory, which a dump has no text for"),
    (r"std::vector<", "a copy of the registry's keys or items, of which each is told as it comes"),
    (r"size_t$|^unsigned long", "a place in a text or a container of C++"),
]

# Single locals, as "Class::Function, local", and why.
EXCEPTIONS = {
    "Main2::HandleDocumentCreateImpl, isStale": "the outcome of a condition",
    "Main2::ShrinkDropDownMenu, more": "the outcome of a condition",
    "Main2::ShrinkDropDownMenu, isIt": "the outcome of a condition",
    "Main2::ProcessEliteButtons, number": "i, in a width that gets past the last 16-bit number",
    "Main2::ToggleToolbarForNoDocuments, number": "i, in a width that gets past the last 16-bit number",
    "CommonPropertyFunctions::InitializeMapWithPossibleValues, last": "the outcome of a condition",
    "SleepReplacement::Wait, loop": "mMessageLoop once more, held until the wait is over",
    "cCustomClipboard::GetFileList, unused": "a variable that the system asks for and leaves alone",
    "cCustomClipboard::SetFileList, names": "what becomes bData in the next statement",
    **{f"vbwProtector::vbwErrorHandler, {name}": "a parameter or mStack once more, for the component to write to"
       for name in ("number", "line", "description", "project", "source", "procedure", "names")},
    "Advertisement::addEmailParameterToWebsite, address": "the parameter website once more, which getEmail may change",
    "LoadImageFromResource::LoadResGifJpgBmp, told": "what an observer is told at every way out",
    "ToolbarUtilities::capitalize, first": "one character, which has no kind of its own in a dump",
}


def _is_exempt(function, local):
    if local.is_constant or re.match(r"k[A-Z]", local.name):
        return True  # a constant
    if local.is_reference:
        return True  # another name for something that is reported where it belongs
    if local.is_lambda:
        return True  # a piece of the procedure, not a value
    if local.where == "condition":
        return True  # the outcome of a condition, which the next statement reads
    if local.where == "range":
        return True  # an element of what is gone through
    if local.where == "statement":
        return True  # gone with its statement, before anybody is asked
    return any(re.search(pattern, local.type) for pattern, _ in TYPES)


def check(core, exceptions=EXCEPTIONS):
    wrong = []
    used = set()
    for function in core.functions.values():
        if not in_procedure_folders(function) or function.kind not in ("procedure", "stretch"):
            continue
        if function.name in RAISING_PROCEDURES:
            continue  # has no tail, hence no dump
        for local in function.locals:
            key = f"{function.name}, {local.name}"
            if local.is_reported or _is_exempt(function, local):
                continue
            if key in exceptions:
                used.add(key)
                continue
            what = "declare it in the procedure and hand it in" if function.kind == "stretch" else "tell it in REPORTS"
            shadowed = any(other.name == local.name and other.is_reported for other in function.locals)
            if shadowed:
                what = "it hides the one that REPORTS tells"
            wrong.append((function.file, local.line, f"{function.name}: no dump shows the local {local.name}: {what}"))
        if function.kind == "procedure":
            wrong += _order(function)
            wrong += _parameters(function)
    return wrong + [(PLACE, 1, f"the exception {key} is of no use any more: take it off the list")
                    for key in exceptions if key not in used]


def _order(function):
    declared = [local.name for local in function.locals if local.is_reported]
    told = list(dict.fromkeys(function.reported))  # a record's fields are told one by one
    if told != declared:
        return [(function.file, function.report_line,
                 f"{function.name}: REPORTS tells {', '.join(told)}; declared are, in order, {', '.join(declared)}")]
    return []


def _parameters(function):
    return [(function.file, function.line, f"{function.name}: no dump shows the parameter {name or '(unnamed)'}")
            for name, _, is_reported in function.parameters if not is_reported]
