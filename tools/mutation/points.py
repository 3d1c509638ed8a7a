"""Finds the mutation points of a source file: what can be changed, and where."""

import hashlib
import re
from dataclasses import asdict, dataclass

import clang.cindex as clang
from clang.cindex import CursorKind as Kind
from clang.cindex import TypeKind

COMPARISONS = {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "=="}
NUMBERS = {
    TypeKind.BOOL, TypeKind.CHAR_U, TypeKind.UCHAR, TypeKind.CHAR16, TypeKind.CHAR32, TypeKind.USHORT, TypeKind.UINT,
    TypeKind.ULONG, TypeKind.ULONGLONG, TypeKind.CHAR_S, TypeKind.SCHAR, TypeKind.WCHAR, TypeKind.SHORT, TypeKind.INT,
    TypeKind.LONG, TypeKind.LONGLONG, TypeKind.FLOAT, TypeKind.DOUBLE, TypeKind.ENUM,
}
LITERALS = {Kind.INTEGER_LITERAL, Kind.FLOATING_LITERAL, Kind.CHARACTER_LITERAL, Kind.CXX_BOOL_LITERAL_EXPR}
FUNCTIONS = {Kind.FUNCTION_DECL, Kind.CXX_METHOD, Kind.CONSTRUCTOR, Kind.DESTRUCTOR, Kind.CONVERSION_FUNCTION,
             Kind.FUNCTION_TEMPLATE}
CLASSES = {Kind.CLASS_DECL, Kind.STRUCT_DECL, Kind.CLASS_TEMPLATE, Kind.CLASS_TEMPLATE_PARTIAL_SPECIALIZATION}
NEVER_RUN = {Kind.STATIC_ASSERT, Kind.ENUM_DECL, Kind.TYPE_ALIAS_DECL, Kind.TYPEDEF_DECL, Kind.TEMPLATE_TYPE_PARAMETER,
             Kind.TEMPLATE_NON_TYPE_PARAMETER, Kind.TYPE_ALIAS_TEMPLATE_DECL, Kind.TEMPLATE_REF, Kind.TYPE_REF}
# Names and locals for the dump, and the name of a procedure: texts, not statements.
UNTOUCHED_MACROS = re.compile(r"\b(REPORTS|PROCEDURE|METHOD|STRETCH|STRANDLINE_REPORT)\s*\(")
MACRO_CALL = re.compile(r"[A-Z][A-Z_]{2,}\s*\(")
BODY_OWNERS = {Kind.IF_STMT, Kind.WHILE_STMT, Kind.FOR_STMT, Kind.CXX_FOR_RANGE_STMT, Kind.DO_STMT}


@dataclass
class Point:
    file: str
    function: str
    kind: str    # negate, compare, constant, label, call, assign
    what: str    # the text, and what becomes of it
    line: int
    start: int   # offsets of what is wrapped; for a comparison, of its sign
    end: int
    extra: str = ""  # a comparison's sign, a label's text
    early: bool = False  # the compiler may have to compute it
    number: int = 0  # the switch, given later
    key: str = ""    # outlives unrelated edits of the file
    body: str = ""   # a digest of the function: what was found out holds while it stays

    def as_dict(self):
        return asdict(self)


def bytes_offsets(text):
    """libclang counts bytes, Python characters; equal where all is ASCII."""
    if text.isascii():
        return None
    table = [0] * (len(text.encode()) + 1)
    at = 0
    for index, character in enumerate(text):
        for _ in range(len(character.encode())):
            table[at] = index
            at += 1
    table[at] = len(text)
    return table


class Finder:
    def __init__(self, root, path, flags):
        self.path = path
        self.full = f"{root}/{path}"
        with open(self.full, encoding="utf-8") as source:
            self.text = source.read()
        self.table = bytes_offsets(self.text)
        self.points = {}
        self.constants = {}
        self.body = ""
        self.early = False
        self.untouched = [self.balanced(m.end() - 1, m.start()) for m in UNTOUCHED_MACROS.finditer(self.text)]
        index = clang.Index.create()
        self.unit = index.parse(self.full, args=flags)
        self.errors = [str(d) for d in self.unit.diagnostics if d.severity >= clang.Diagnostic.Error]

    def balanced(self, opening, start):
        depth = 0
        for at in range(opening, len(self.text)):
            depth += {"(": 1, ")": -1}.get(self.text[at], 0)
            if depth == 0:
                return (start, at + 1)
        return (start, len(self.text))

    # Where a cursor stands in the file; an argument of a macro where it is written.
    def place(self, location):
        file = clang.c_object_p()
        line, column, offset = clang.c_uint(), clang.c_uint(), clang.c_uint()
        clang.conf.lib.clang_getFileLocation(location, clang.byref(file), clang.byref(line), clang.byref(column),
                                             clang.byref(offset))
        if not file or clang.File(file).name != self.full:
            return None
        return self.table[offset.value] if self.table else offset.value

    def range(self, cursor):
        extent = cursor.extent
        start, end = self.place(extent.start), self.place(extent.end)
        if start is None or end is None or start >= end:
            return None
        text = self.text[start:end]
        if text.count("(") != text.count(")") or text.count("{") != text.count("}") or MACRO_CALL.match(text):
            return None
        if any(low <= start and end <= high for low, high in self.untouched):
            return None
        return start, end

    def add(self, kind, where, function, what, extra=""):
        if where is None:
            return
        start, end = where
        key = (start, end, kind, extra if kind == "label" else "")
        if key not in self.points:
            line = self.text.count("\n", 0, start) + 1
            self.points[key] = Point(self.path, function, kind, " ".join(what.split()), line, start, end, extra,
                                     self.early, body=self.body)

    def found(self):
        for cursor in self.unit.cursor.get_children():
            self.visit_outside(cursor, "")
        ordered = sorted(self.points.values(), key=lambda p: (p.start, p.end, p.kind, p.extra))
        counts = {}
        for point in ordered:
            key = f"{point.file}:{point.function}:{point.kind}:{point.what}"
            counts[key] = counts.get(key, 0) + 1
            point.key = key if counts[key] == 1 else f"{key}#{counts[key]}"
        return ordered

    # --- Outside of functions

    def visit_outside(self, cursor, name):
        file = cursor.location.file
        if file is None or file.name != self.full:
            return
        kind = cursor.kind
        if kind in NEVER_RUN:
            return
        if kind in FUNCTIONS:
            self.visit_function(cursor)
        elif kind == Kind.FIELD_DECL:
            self.remember_body(cursor, early=True)
            self.visit_inside(cursor, [], f"{cursor.semantic_parent.spelling}::{cursor.spelling}")
        elif kind == Kind.VAR_DECL or kind.is_expression():
            self.visit_for_lambdas(cursor, cursor.spelling or name)
        else:
            for child in cursor.get_children():
                self.visit_outside(child, cursor.spelling)

    def visit_for_lambdas(self, cursor, name):
        for child in cursor.get_children():
            if child.kind == Kind.LAMBDA_EXPR:
                self.remember_body(child)
                self.visit_inside(child, [cursor], name)
            else:
                self.visit_for_lambdas(child, name)

    def visit_function(self, cursor):
        parent = cursor.semantic_parent
        name = cursor.spelling.split("<")[0]
        if parent is not None and parent.kind in CLASSES:
            name = f"{parent.spelling.split('<')[0]}::{name}"
        self.remember_body(cursor, early=any(token.spelling == "constexpr" for token in self.tokens_before_name(cursor)))
        self.visit_inside(cursor, [], name)

    def remember_body(self, cursor, early=False):
        self.early = early
        start, end = self.place(cursor.extent.start), self.place(cursor.extent.end)
        if start is not None and end is not None:
            self.body = hashlib.sha1(self.text[start:end].encode()).hexdigest()[:12]

    # --- Inside

    def visit_inside(self, cursor, parents, function):
        kind = cursor.kind
        if kind in NEVER_RUN:
            return
        if kind in CLASSES and parents:
            for child in cursor.get_children():
                self.visit_outside(child, function)
            return
        if kind == Kind.VAR_DECL and self.is_computed_by_compiler(cursor):
            self.visit_for_lambdas(cursor, function)
            return
        if parents and self.is_statement(cursor, parents[-1]):
            self.consider_drop(cursor, function)
        if kind == Kind.IF_STMT:
            self.consider_condition(cursor, function, "if", False)
        elif kind == Kind.WHILE_STMT:
            self.consider_condition(cursor, function, "while", False)
        elif kind == Kind.FOR_STMT:
            self.consider_condition(cursor, function, "for", True)
        elif kind == Kind.DO_STMT:
            self.negate(list(cursor.get_children())[-1], function)
        elif kind == Kind.CONDITIONAL_OPERATOR:
            self.negate(next(cursor.get_children()), function)
        elif kind == Kind.BINARY_OPERATOR or kind == Kind.CALL_EXPR:
            self.consider_operator(cursor, function)
        elif kind == Kind.RETURN_STMT:
            self.consider_return(cursor, function)
        elif kind == Kind.SWITCH_STMT:
            self.consider_switch(cursor, function)
        elif kind in LITERALS or kind == Kind.DECL_REF_EXPR:
            self.consider_constant(cursor, parents, function)
        parents.append(cursor)
        for position, child in enumerate(cursor.get_children()):
            if kind == Kind.CASE_STMT and position == 0:
                continue
            # The type of a declaration may hold constants: array bounds, arguments of a template.
            if kind in (Kind.VAR_DECL, Kind.FIELD_DECL, Kind.PARM_DECL) and child.kind.is_expression():
                start = self.place(child.extent.start)
                if start is not None and start < (self.place(cursor.location) or 0):
                    continue
            if kind in (Kind.DECL_REF_EXPR, Kind.MEMBER_REF_EXPR) and child.kind in LITERALS:
                continue
            self.visit_inside(child, parents, function)
        parents.pop()

    def is_computed_by_compiler(self, variable):
        words = {token.spelling for token in self.tokens_before_name(variable)}
        if "constexpr" in words or "static" in words:
            return True
        if "const" in words and variable.type.get_canonical().kind in NUMBERS:
            expressions = [c for c in variable.get_children() if c.kind.is_expression()]
            return bool(expressions) and all(self.is_constant(c) for c in expressions)
        return False

    @staticmethod
    def tokens_before_name(variable):
        for token in variable.get_tokens():
            if token.extent.start.offset >= variable.location.offset:
                return
            yield token

    def is_constant(self, expression):
        if expression.kind in LITERALS:
            return True
        if expression.kind == Kind.DECL_REF_EXPR:
            return self.is_named_constant(expression.referenced)
        if expression.kind == Kind.CALL_EXPR:
            return False
        children = list(expression.get_children())
        return bool(children) and all(self.is_constant(c) for c in children)

    def is_named_constant(self, declaration):
        if declaration is None:
            return False
        if declaration.kind == Kind.ENUM_CONSTANT_DECL:
            return True
        if declaration.kind != Kind.VAR_DECL or not declaration.type.is_const_qualified():
            return False
        where = (str(declaration.location.file), declaration.location.offset)
        if where not in self.constants:
            self.constants[where] = (declaration.type.get_canonical().kind in NUMBERS and
                                     (declaration.semantic_parent.kind in CLASSES | {Kind.NAMESPACE} or
                                      self.is_computed_by_compiler(declaration)))
        return self.constants[where]

    # --- Statements

    def is_statement(self, cursor, parent):
        if not cursor.kind.is_expression():
            return False
        if parent.kind in (Kind.COMPOUND_STMT, Kind.LABEL_STMT, Kind.DEFAULT_STMT):
            return True
        if parent.kind == Kind.CASE_STMT:
            return next(parent.get_children()) != cursor
        if parent.kind not in BODY_OWNERS:
            return False
        where = self.range(cursor)
        if where is None:
            return False
        before = self.text[:where[0]].rstrip()
        return before.endswith("else") or before.endswith("do") or self.closes_header(parent, before)

    def closes_header(self, owner, before):
        if not before.endswith(")"):
            return False
        header = self.header(owner)
        return header is not None and header[1] == len(before)

    # The parentheses of an if, a while, a for.
    def header(self, owner):
        start = self.place(owner.extent.start)
        if start is None:
            return None
        match = re.compile(r"(if|while|for)\s*\(").match(self.text, start)
        return self.balanced(match.end() - 1, match.end() - 1) if match else None

    def consider_drop(self, cursor, function):
        while cursor.kind == Kind.UNEXPOSED_EXPR:
            children = list(cursor.get_children())
            if len(children) != 1:
                break
            cursor = children[0]
        where = self.range(cursor)
        if where is None:
            return
        start, end = where
        if self.text[end:].lstrip()[:1] not in (";", ")", ","):
            return
        text = self.text[start:end]
        if re.search(r"\bCONDITION\(\s*$", self.text[:start]):
            return
        kind = None
        if cursor.kind == Kind.CALL_EXPR:
            kind = "assign" if cursor.spelling.startswith("operator") and "=" in cursor.spelling else "call"
        elif cursor.kind == Kind.COMPOUND_ASSIGNMENT_OPERATOR:
            kind = "assign"
        elif cursor.kind == Kind.BINARY_OPERATOR and self.sign(cursor) == "=":
            kind = "assign"
        elif cursor.kind == Kind.UNARY_OPERATOR and (text.startswith(("++", "--")) or text.endswith(("++", "--"))):
            kind = "assign"
        if kind:
            self.add(kind, where, function, f"{text} dropped")

    # --- Conditions and comparisons

    def consider_condition(self, cursor, function, word, is_for):
        header = self.header(cursor)
        if header is None:
            return
        low, high = header[0] + 1, header[1] - 1
        parts, depth, begin = [], 0, low
        for at in range(low, high):
            depth += {"(": 1, "{": 1, "[": 1, ")": -1, "}": -1, "]": -1}.get(self.text[at], 0)
            if self.text[at] == ";" and depth == 0:
                parts.append((begin, at))
                begin = at + 1
        parts.append((begin, high))
        if is_for:
            if len(parts) != 3:
                return
            low, high = parts[1]
        else:
            low, high = parts[-1]
        for child in cursor.get_children():
            where = self.range(child)
            if where and low <= where[0] and where[1] <= high and child.kind.is_expression():
                self.negate(child, function)

    def negate(self, cursor, function):
        cursor = self.bare(cursor)
        where = self.range(cursor)
        if where is None or cursor.kind in LITERALS:
            return
        if not cursor.kind.is_expression():
            return
        # With these the moved comparison is the negated one.
        if self.comparison(cursor) in ("==", "!="):
            return
        self.add("negate", where, function, f"{self.text[where[0]:where[1]]} negated")

    def bare(self, cursor):
        while cursor.kind == Kind.UNEXPOSED_EXPR:
            children = list(cursor.get_children())
            if len(children) != 1 or self.range(children[0]) != self.range(cursor):
                break
            cursor = children[0]
        return cursor

    def operands(self, cursor):
        children = [(self.place(c.extent.start), self.place(c.extent.end), c) for c in cursor.get_children()]
        children = [c for c in children if c[0] is not None and c[1] is not None]
        children.sort(key=lambda c: (c[0], c[1]))
        if len(children) < 2:
            return None
        return children[0], children[-1]

    def sign_range(self, cursor):
        pair = self.operands(cursor)
        if pair is None or pair[0][1] > pair[1][0]:
            return None
        low, high = pair[0][1], pair[1][0]
        between = self.text[low:high]
        sign = between.strip()
        if not sign or re.search(r"[\w\"()]", sign):
            return None
        low += between.index(sign)
        return low, low + len(sign)

    def sign(self, cursor):
        where = self.sign_range(cursor)
        return self.text[where[0]:where[1]] if where else None

    def comparison(self, cursor):
        cursor = self.bare(cursor)
        if cursor.kind == Kind.CALL_EXPR and not cursor.spelling.startswith("operator"):
            return None
        if cursor.kind == Kind.UNARY_OPERATOR:
            # a != b by way of operator==
            children = list(cursor.get_children())
            if children and self.range(children[0]) == self.range(cursor):
                return self.comparison(children[0])
            return None
        if cursor.kind not in (Kind.BINARY_OPERATOR, Kind.CALL_EXPR):
            return None
        sign = self.sign(cursor)
        return sign if sign in COMPARISONS else None

    def consider_operator(self, cursor, function):
        whole = self.range(cursor)
        if whole is None:
            return
        if cursor.kind == Kind.CALL_EXPR and not cursor.spelling.startswith("operator"):
            return
        sign = self.sign(cursor)
        if sign in COMPARISONS:
            self.add("compare", self.sign_range(cursor), function,
                     f"{self.text[whole[0]:whole[1]]} moved to {COMPARISONS[sign]}", sign)
        elif sign in ("&&", "||") and cursor.kind == Kind.BINARY_OPERATOR:
            for child in cursor.get_children():
                self.negate(child, function)
        elif sign == "=" and cursor.kind == Kind.BINARY_OPERATOR:
            self.consider_result(list(cursor.get_children())[-1], function)

    # A Boolean that is returned, or kept for later.
    def consider_result(self, expression, function):
        expression = self.bare(expression)
        if expression.kind in LITERALS or expression.type.get_canonical().kind != TypeKind.BOOL:
            return
        if expression.kind == Kind.BINARY_OPERATOR and self.sign(expression) == "=":
            return
        if expression.kind == Kind.DECL_REF_EXPR and self.is_named_constant(expression.referenced):
            return
        self.negate(expression, function)

    def consider_return(self, cursor, function):
        for child in cursor.get_children():
            self.consider_result(child, function)

    def consider_switch(self, cursor, function):
        labels = []

        def collect(inner):
            for child in inner.get_children():
                if child.kind == Kind.SWITCH_STMT or child.kind == Kind.LAMBDA_EXPR:
                    continue
                if child.kind == Kind.CASE_STMT:
                    label = self.range(next(child.get_children()))
                    if label:
                        labels.append(self.text[label[0]:label[1]])
                collect(child)

        collect(cursor)
        children = [c for c in cursor.get_children() if c.kind.is_expression()]
        where = self.range(children[0]) if children else None
        if where is None:
            return
        for label in labels:
            self.add("label", where, function, f"case {label} moved by one", label)

    # --- Constants

    def consider_constant(self, cursor, parents, function):
        if cursor.type.get_canonical().kind not in NUMBERS:
            return
        if cursor.kind == Kind.DECL_REF_EXPR and not self.is_named_constant(cursor.referenced):
            return
        parent = parents[-1] if parents else None
        above = list(reversed(parents))
        for owner in above[:3]:
            if owner.kind == Kind.UNEXPOSED_EXPR and owner.type.get_canonical().kind in (TypeKind.POINTER, TypeKind.NULLPTR):
                return
        where = self.range(cursor)
        if where is None:
            return
        if parent is not None and parent.kind == Kind.UNARY_OPERATOR:
            place = self.range(parent)
            if place and self.text[place[0]] == "&":
                return
        text = self.text[where[0]:where[1]]
        if cursor.kind in LITERALS and not re.match(r"[\d.'uUL]|true\b|false\b", text):
            return
        becomes = "flipped" if cursor.type.get_canonical().kind == TypeKind.BOOL else "moved by one"
        self.add("constant", where, function, f"{text} {becomes} in {self.line_at(where[0])}")

    def line_at(self, offset):
        begin = self.text.rfind("\n", 0, offset) + 1
        end = self.text.find("\n", offset)
        return self.text[begin:end if end >= 0 else len(self.text)].strip()


def prepare():
    if not hasattr(prepare, "done"):
        clang.Config.set_library_file("libclang-14.so.1")
        clang.conf.lib.clang_getFileLocation.argtypes = [
            clang.SourceLocation, clang.POINTER(clang.c_object_p), clang.POINTER(clang.c_uint),
            clang.POINTER(clang.c_uint), clang.POINTER(clang.c_uint)]
        prepare.done = True


def points_of(root, path, flags):
    """The points of one file, and what clang couldn't understand in it."""
    prepare()
    finder = Finder(root, path, flags)
    return [point.as_dict() for point in finder.found()], finder.errors
