"""What the compiler sees in the core: its functions with their frames, parameters, locals and calls.

libclang parses all headers of the core once and keeps them precompiled; each source is parsed on top of them.
"""

import ctypes
import os
import tempfile
from concurrent.futures import ProcessPoolExecutor
from dataclasses import dataclass, field

from clang import cindex
from clang.cindex import CursorKind as K

from .tree import CORE, PROCEDURE_FOLDERS

FLAGS = ["-x", "c++", "-std=c++20", "-Wno-pragma-once-outside-header"]

FUNCTIONS = {K.FUNCTION_DECL, K.CXX_METHOD, K.CONSTRUCTOR, K.DESTRUCTOR, K.CONVERSION_FUNCTION, K.FUNCTION_TEMPLATE}
SCOPES = {K.NAMESPACE, K.CLASS_DECL, K.STRUCT_DECL, K.CLASS_TEMPLATE, K.CLASS_TEMPLATE_PARTIAL_SPECIALIZATION,
          K.LINKAGE_SPEC, K.UNEXPOSED_DECL}
REFERENCES = {K.CALL_EXPR, K.DECL_REF_EXPR, K.MEMBER_REF_EXPR}
# The names that the words of foundation/procedure.h declare themselves.
OWN_NAMES = {"here", "procedure_", "parameters_", "locals_"}


@dataclass
class Local:
    name: str
    line: int
    type: str            # canonical, without const and volatile in front
    is_const: bool
    is_reference: bool
    is_static: bool
    is_constant: bool    # constexpr
    is_lambda: bool
    where: str           # "body", "statement" (in a STEP), "condition" (made by CONDITION), "range" (a range-for's)
    is_reported: bool = False


@dataclass
class Call:
    target: str          # the id of a function
    name: str
    line: int
    guarded: bool        # an error in it is caught: by a STEP, an ATTEMPT, a CONDITION or a catch
    is_call: bool = True  # False: the function is only named, to be called by somebody else


@dataclass
class Function:
    id: str
    name: str            # with its class
    file: str
    line: int
    kind: str            # "procedure" (METHOD or PROCEDURE), "stretch", "plain", "lambda" (one that has a name)
    linkage: str         # "external", "internal", "none"
    is_inline: bool      # defined in a header or in a class
    parameters: list = field(default_factory=list)  # (name, type, is reported)
    locals: list = field(default_factory=list)
    reported: list = field(default_factory=list)    # the names of REPORTS, in order
    report_line: int = 0
    calls: list = field(default_factory=list)
    overrides: list = field(default_factory=list)
    steps: list = field(default_factory=list)       # the lines of its own STEPs, ATTEMPTs and CONDITIONs


@dataclass
class Core:
    functions: dict      # by id
    private_names: dict  # by source: what it declares in unnamed namespaces


class ParseError(Exception):
    """The compiler refuses a source, so that nothing can be said of it."""

    def __init__(self, path, line, text):
        super().__init__(path, line, text)
        self.finding = (path, line, f"can't check, it doesn't compile: {text}")


def _parse_arguments(root):
    return FLAGS + ["-I", root]


def _errors(unit):
    return [each for each in unit.diagnostics if each.severity >= cindex.Diagnostic.Error]


def _complain(root, unit):
    for error in _errors(unit):
        file = error.location.file
        raise ParseError(os.path.relpath(file.name, root) if file else "the core", error.location.line, error.spelling)


def _overridden(cursor):
    library = cindex.conf.lib
    found, count = ctypes.POINTER(cindex.Cursor)(), ctypes.c_uint()
    library.clang_getOverriddenCursors.argtypes = [cindex.Cursor, ctypes.POINTER(ctypes.POINTER(cindex.Cursor)),
                                                   ctypes.POINTER(ctypes.c_uint)]
    library.clang_getOverriddenCursors.restype = None
    library.clang_getOverriddenCursors(cursor, ctypes.byref(found), ctypes.byref(count))
    ids = []
    for index in range(count.value):
        each = found[index]
        each._tu = cursor._tu
        ids.append(_id(each))
    if count.value:
        library.clang_disposeOverriddenCursors.argtypes = [ctypes.POINTER(cindex.Cursor)]
        library.clang_disposeOverriddenCursors(found)
    return ids


def _pattern(cursor):
    """What an instance of a template was made from; anything else is itself."""
    template = cindex.conf.lib.clang_getSpecializedCursorTemplate(cursor)
    return cursor if template is None or template.kind.is_invalid() else template


def _id(cursor):
    for _ in range(4):
        pattern = _pattern(cursor)
        if pattern == cursor:
            break
        cursor = pattern
    return cursor.get_usr()


def _qualified(cursor):
    name = cursor.spelling.split("<")[0]
    parent = cursor.semantic_parent
    if parent is not None and parent.kind in SCOPES and parent.kind != K.NAMESPACE:
        return f"{parent.spelling}::{name}"
    if parent is not None and parent.kind == K.NAMESPACE and parent.spelling not in ("", "strandline"):
        return f"{parent.spelling}::{name}"
    return name


@dataclass(frozen=True)
class Context:
    guarded: bool = False
    statement: bool = False   # inside a STEP
    argument: bool = False    # between a STEP and its lambda
    range_variable: bool = False


class Reader:
    """Collects the functions of one translation unit that stand in `wanted` files."""

    def __init__(self, root, wanted, lines_of):
        self.root = root
        self.wanted = wanted
        self.lines_of = lines_of
        self.functions = []
        self.private_names = set()
        self.lambdas = {}    # hash of a variable's cursor: id of the lambda that it holds

    def path(self, cursor):
        file = cursor.location.file
        return os.path.relpath(file.name, self.root) if file else ""

    def read(self, cursor):
        for child in cursor.get_children():
            if child.kind in SCOPES:
                if child.kind != K.NAMESPACE and self.path(child) not in self.wanted:
                    continue
                if child.kind == K.NAMESPACE and not child.spelling and self.path(child) in self.wanted:
                    self.private_names.update(each.spelling for each in child.get_children() if each.spelling)
                self.read(child)
            elif child.kind in FUNCTIONS and child.is_definition() and self.path(child) in self.wanted:
                self.function(child)

    def function(self, cursor):
        body = next((child for child in cursor.get_children() if child.kind in (K.COMPOUND_STMT, K.CXX_TRY_STMT)), None)
        if body is None:
            return
        path = self.path(cursor)
        linkage = {cindex.LinkageKind.EXTERNAL: "external", cindex.LinkageKind.UNIQUE_EXTERNAL: "internal",
                   cindex.LinkageKind.INTERNAL: "internal"}.get(cursor.linkage, "none")
        function = Function(_id(cursor), _qualified(cursor), path, cursor.location.line, "plain", linkage,
                            path.endswith(".h"), overrides=_overridden(cursor))
        self.functions.append(function)
        self.parts = [(each.spelling, each.hash) for each in cursor.get_children() if each.kind == K.PARM_DECL]
        self.places = {}     # hash of a local's cursor: the Local
        self.told = []       # hashes, in the order of METHOD, PROCEDURE and REPORTS
        parameters = [each for each in cursor.get_children() if each.kind == K.PARM_DECL]
        told_of_parameters = []
        self.told_of_parameters = told_of_parameters
        for child in cursor.get_children():
            if child.kind in (K.COMPOUND_STMT, K.CXX_TRY_STMT) or (cursor.kind == K.CONSTRUCTOR and
                                                                     child.kind != K.PARM_DECL):
                self.walk(child, Context(), function)
        function.parameters = [(each.spelling, each.type.spelling, each.hash in told_of_parameters)
                               for each in parameters]
        for mark, local in self.places.items():
            local.is_reported = mark in self.told
        names = {mark: local.name for mark, local in self.places.items()}
        function.reported = [names[mark] for mark in self.told if mark in names]
        function.locals = list(self.places.values())

    def walk(self, cursor, context, function):
        kind = cursor.kind
        if kind == K.VAR_DECL:
            if self.variable(cursor, context, function):
                return
        elif kind == K.LAMBDA_EXPR:
            inner = context
            if context.argument:
                inner = Context(guarded=True, statement=True)
            for child in cursor.get_children():
                if child.kind == K.COMPOUND_STMT:
                    self.walk(child, inner, function)
            return
        elif kind == K.CXX_TRY_STMT:
            children = list(cursor.get_children())
            catches = [child for child in children if child.kind == K.CXX_CATCH_STMT]
            held = not any(self.rethrows(child) for child in catches)
            self.walk(children[0], Context(context.guarded or held, context.statement), function)
            for child in catches:
                self.walk(child, context, function)
            return
        elif kind == K.CXX_THROW_EXPR:
            if list(cursor.get_children()):
                function.calls.append(Call("throw", "throw", cursor.location.line, context.guarded))
        elif kind == K.CXX_FOR_RANGE_STMT:
            children = list(cursor.get_children())
            for child in children:
                inner = context
                if child.kind == K.VAR_DECL:
                    inner = Context(context.guarded, context.statement, False, True)
                self.walk(child, inner, function)
            return
        elif kind in REFERENCES:
            if self.reference(cursor, context, function):
                return
        elif kind == K.OVERLOADED_DECL_REF:
            function.calls.append(Call("name:" + cursor.spelling, cursor.spelling, cursor.location.line,
                                       context.guarded))
        inner = context if not context.range_variable else Context(context.guarded, context.statement)
        for child in cursor.get_children():
            self.walk(child, inner, function)

    @staticmethod
    def rethrows(cursor):
        return any(each.kind == K.CXX_THROW_EXPR and not list(each.get_children()) for each in cursor.walk_preorder())

    def reference(self, cursor, context, function):
        """Notes a call; True when its children have been walked."""
        target = cursor.referenced
        if target is None:
            if cursor.kind == K.CALL_EXPR and cursor.spelling:
                function.calls.append(Call("name:" + cursor.spelling, cursor.spelling, cursor.location.line,
                                           context.guarded))
            return False
        if target.kind == K.VAR_DECL:
            if target.hash in self.lambdas and cursor.kind == K.DECL_REF_EXPR:
                function.calls.append(Call(self.lambdas[target.hash], target.spelling, cursor.location.line,
                                           context.guarded))
            return False
        if target.kind not in FUNCTIONS:
            return False
        if cursor.kind == K.CALL_EXPR and target.spelling in ("Step", "Attempt") and \
                target.semantic_parent.spelling in ("Frame", "Stretch"):
            if not context.statement:
                function.steps.append(cursor.location.line)
            for child in cursor.get_children():
                self.walk(child, Context(context.guarded, context.statement, argument=True), function)
            return True
        if cursor.kind == K.CALL_EXPR and target.spelling == "List" and target.semantic_parent.spelling == "Reporter":
            return False
        # A call comes before the name in it, so the name has been noted then.
        is_call = cursor.kind == K.CALL_EXPR
        last = function.calls[-1] if function.calls else None
        if is_call or last is None or (last.target, last.line) != (_id(target), cursor.location.line):
            function.calls.append(Call(_id(target), target.spelling, cursor.location.line, context.guarded, is_call))
        return False

    def variable(self, cursor, context, function):
        """Notes a local; True when there is nothing to walk in it."""
        name = cursor.spelling
        if name == "here":
            spelling = cursor.type.get_canonical().spelling
            if "Stretch" in spelling:
                function.kind = "stretch"
            elif "Procedure<" in spelling or "Method<" in spelling or "UncountedFrame" in spelling:
                function.kind = "procedure"
            return False
        if name in ("parameters_", "locals_", "parameters") and self.is_report(cursor):
            told = [each.referenced.hash for each in cursor.walk_preorder()
                    if each.kind == K.DECL_REF_EXPR and each.referenced is not None]
            if name == "locals_":
                self.told += told
                function.report_line = cursor.location.line
            else:
                self.told_of_parameters += told
            return True
        if name in OWN_NAMES:
            return True
        kind = cursor.type.get_canonical()
        is_reference = kind.kind in (cindex.TypeKind.LVALUEREFERENCE, cindex.TypeKind.RVALUEREFERENCE)
        holder = self.lambda_in(cursor)
        where = "range" if context.range_variable else "statement" if context.statement else "body"
        if where == "body" and self.source_at(cursor).startswith("CONDITION("):
            where = "condition"
        tokens = self.source_at(cursor, whole_line=True)
        spelling = kind.spelling
        for prefix in ("const ", "volatile "):
            spelling = spelling.removeprefix(prefix)
        self.places[cursor.hash] = Local(name, cursor.location.line, spelling, kind.is_const_qualified(), is_reference,
                                         cursor.storage_class == cindex.StorageClass.STATIC, "constexpr " in tokens,
                                         holder is not None, where)
        if holder is not None:
            inner = Function(f"{function.id}@{name}", f"{function.name}, lambda {name}", function.file,
                             cursor.location.line, "lambda", "none", function.is_inline)
            self.lambdas[cursor.hash] = inner.id
            self.functions.append(inner)
            for child in holder.get_children():
                if child.kind == K.COMPOUND_STMT:
                    self.walk(child, Context(statement=context.statement), inner)
            return True
        return False

    @staticmethod
    def is_report(cursor):
        return Reader.lambda_in(cursor) is not None

    @staticmethod
    def lambda_in(cursor):
        if "(lambda at" not in cursor.type.get_canonical().spelling:
            return None
        return next((each for each in cursor.walk_preorder() if each.kind == K.LAMBDA_EXPR), None)

    def source_at(self, cursor, whole_line=False):
        place = cursor.location
        line = self.lines_of(self.path(cursor))[place.line - 1]
        return line if whole_line else line[place.column - 1:]


def _lines_of(root):
    texts = {}

    def lines(path):
        if path not in texts:
            with open(os.path.join(root, path), encoding="utf-8") as file:
                texts[path] = file.read().split("\n")
        return texts[path]
    return lines


def _functions_of_source(root, path, precompiled):
    index = cindex.Index.create(excludeDecls=True)
    name = os.path.join(root, path)
    unit = index.parse(name, args=_parse_arguments(root) + ["-include-pch", precompiled])
    if _errors(unit):
        # A name of a header that this source doesn't include can stand in its way.
        unit = index.parse(name, args=_parse_arguments(root))
        _complain(root, unit)
    reader = Reader(root, {path}, _lines_of(root))
    reader.read(unit.cursor)
    return path, reader.functions, reader.private_names


def _functions_of_headers(root, headers, precompiled):
    name = os.path.join(os.path.dirname(precompiled), "headers.h")
    with open(name, "w", encoding="utf-8") as file:
        file.writelines(f'#include "{each}"\n' for each in headers)
    arguments = _parse_arguments(root)
    arguments[1] = "c++-header"
    unit = cindex.Index.create().parse(name, args=arguments)
    _complain(root, unit)
    unit.save(precompiled)
    reader = Reader(root, set(headers), _lines_of(root))
    reader.read(unit.cursor)
    return reader.functions


def _merged(functions):
    """Each function once. What the compiler made of a template knows more calls than the template itself."""
    merged = {}
    for function in functions:
        known = merged.setdefault(function.id, function)
        if known is not function:
            seen = {(call.target, call.line, call.guarded) for call in known.calls}
            known.calls += [call for call in function.calls if (call.target, call.line, call.guarded) not in seen]
    return merged


def read_core(tree):
    headers = tree.files_in(*CORE, endings=(".h",))
    # Long ones first, so that no processor is left with one at the end.
    sources = sorted(tree.files_in(*CORE, endings=(".cpp",)), key=lambda path: -len(tree.read(path)))
    private_names = {}
    with tempfile.TemporaryDirectory() as scratch:
        precompiled = os.path.join(scratch, "headers.pch")
        functions = _functions_of_headers(tree.root, headers, precompiled)
        with ProcessPoolExecutor() as pool:
            for path, found, names in pool.map(_functions_of_source, [tree.root] * len(sources), sources,
                                               [precompiled] * len(sources)):
                functions += found
                private_names[path] = names
    return Core(_merged(functions), private_names)


def in_procedure_folders(function):
    return os.path.dirname(function.file) in PROCEDURE_FOLDERS
