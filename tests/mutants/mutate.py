"""Finds the mutants of C++ sources by the compiler's own syntax tree, and builds all of them into the sources at once.

A mutated expression becomes a choice at run time, `(mutant::On(7) ? (a <= b) : (a < b))`, so that one build serves
every mutant.
"""

import re
from collections import namedtuple

from clang.cindex import CursorKind as Kind, Index, TypeKind

# A change of the bytes from `start` to `end`: `changed` instead of them, or, if that is None, a statement left out.
Mutant = namedtuple("Mutant", "file line column start end original changed")

RELATIONS = {
    "<": ("<=", ">="), "<=": ("<", ">"), ">": (">=", "<="), ">=": (">", "<"), "==": ("!=",), "!=": ("==",),
}
CONNECTORS = {"&&": "||", "||": "&&"}
ARITHMETIC = {"+": "-", "-": "+", "*": "/", "/": "*"}
INTEGERS_ONLY = {"%": "*", "&": "|", "|": "&", "^": "|", "<<": ">>", ">>": "<<"}
OPERATOR = re.compile(r"<<=?|>>=?|&&|\|\||[-+*/%&|^<>=!]?=|[-+*/%&|^<>]")

INTEGER_KINDS = {
    TypeKind.CHAR_S, TypeKind.CHAR_U, TypeKind.SCHAR, TypeKind.UCHAR, TypeKind.SHORT, TypeKind.USHORT, TypeKind.INT,
    TypeKind.UINT, TypeKind.LONG, TypeKind.ULONG, TypeKind.LONGLONG, TypeKind.ULONGLONG, TypeKind.WCHAR,
}
NUMBER_KINDS = INTEGER_KINDS | {TypeKind.FLOAT, TypeKind.DOUBLE}
LITERALS = {
    Kind.INTEGER_LITERAL, Kind.FLOATING_LITERAL, Kind.CHARACTER_LITERAL, Kind.CXX_BOOL_LITERAL_EXPR,
}
# Worked out by the compiler, or no code.
NEVER_RUN = {
    Kind.STATIC_ASSERT, Kind.ENUM_DECL, Kind.CXX_UNARY_EXPR, Kind.TYPEDEF_DECL, Kind.TYPE_ALIAS_DECL,
    Kind.TEMPLATE_NON_TYPE_PARAMETER, Kind.TEMPLATE_TYPE_PARAMETER,
}
STATEMENTS = {
    Kind.CALL_EXPR, Kind.BINARY_OPERATOR, Kind.COMPOUND_ASSIGNMENT_OPERATOR, Kind.UNARY_OPERATOR,
    Kind.UNEXPOSED_EXPR, Kind.CXX_DELETE_EXPR, Kind.BREAK_STMT, Kind.CONTINUE_STMT,
}


def kind_of(cursor):
    """The type of an expression, as the compiler's kinds tell it."""
    return cursor.type.get_canonical().kind


def class_of(cursor):
    """The name of an expression's class, or of its type."""
    return inside(cursor).type.get_canonical().spelling.replace("const ", "")


def inside(cursor):
    """The expression behind implicit conversions and parentheses."""
    children = list(cursor.get_children())
    while cursor.kind in (Kind.UNEXPOSED_EXPR, Kind.PAREN_EXPR) and len(children) == 1:
        cursor = children[0]
        children = list(cursor.get_children())
    return cursor


def is_constant(cursor):
    """A number as it stands, or the name of one."""
    if cursor.kind != Kind.DECL_REF_EXPR:
        return cursor.kind in LITERALS
    declared = cursor.referenced
    return (
        declared is not None
        and declared.kind == Kind.VAR_DECL
        and kind_of(cursor) in NUMBER_KINDS
        and "constexpr" in [token.spelling for token in declared.get_tokens()]
    )


class File:
    """The mutants of one file."""

    def __init__(self, name, text):
        self.name = name
        self.text = text
        self.mutants = set()

    def text_of(self, cursor):
        return self.text[cursor.extent.start.offset : cursor.extent.end.offset]

    def before(self, cursor):
        """The character before a cursor and the white space there."""
        return self.text[: cursor.extent.start.offset].rstrip()[-1:]

    def add(self, cursor, changed):
        start, end = cursor.extent.start.offset, cursor.extent.end.offset
        place = cursor.extent.start
        self.mutants.add(Mutant(self.name, place.line, place.column, start, end, self.text_of(cursor), changed))

    def visit(self, cursor, parent):
        """Mutates what runs: the cursor and all below it."""
        if cursor.kind in NEVER_RUN or self.is_constexpr(cursor):
            return
        children = list(cursor.get_children())
        if cursor.kind == Kind.CASE_STMT:
            children = children[1:]  # the label is a constant
        if cursor.kind in (Kind.VAR_DECL, Kind.FIELD_DECL):
            children = [child for child in children if self.before(child) not in "[<,"]  # sizes, templates' arguments
        if cursor.kind in (Kind.BINARY_OPERATOR, Kind.COMPOUND_ASSIGNMENT_OPERATOR) and len(children) == 2:
            self.mutate_binary(cursor, *children)
        elif cursor.kind == Kind.CALL_EXPR:
            self.mutate_overloaded(cursor, children)
        elif cursor.kind == Kind.UNARY_OPERATOR:
            self.mutate_unary(cursor, children[0])
        elif is_constant(cursor):
            self.mutate_constant(cursor, parent)
        elif cursor.kind == Kind.RETURN_STMT and children:
            self.mutate_returned(children[0])
        if cursor.kind in (Kind.IF_STMT, Kind.WHILE_STMT, Kind.CONDITIONAL_OPERATOR):
            self.negate(children[0])
        for child in children:
            if cursor.kind in (Kind.COMPOUND_STMT, Kind.CASE_STMT, Kind.DEFAULT_STMT) and child.kind in STATEMENTS:
                self.add(child, None)
            self.visit(child, cursor)

    def is_constexpr(self, cursor):
        """A variable whose value the compiler works out."""
        return cursor.kind == Kind.VAR_DECL and "constexpr" in self.text_of(cursor).split("=")[0].split()

    def find_sign(self, left, right):
        """Result: the match of the operator in the text between its sides, of which a comment is no part."""
        between = self.text[left.extent.end.offset : right.extent.start.offset]
        return OPERATOR.search(re.sub(r"//[^\n]*", lambda comment: " " * len(comment[0]), between))

    def mutate_binary(self, cursor, left, right):
        at = left.extent.end.offset
        found = self.find_sign(left, right)
        if found is None:
            return
        sign = found[0]
        both = {kind_of(left), kind_of(right)}
        is_number = both <= NUMBER_KINDS or (kind_of(left) == TypeKind.POINTER and kind_of(right) in INTEGER_KINDS)
        others = ()
        if sign in RELATIONS:
            others = RELATIONS[sign]
        elif sign in CONNECTORS:
            others = (CONNECTORS[sign],)
        elif sign.rstrip("=") in ARITHMETIC and is_number:
            others = (ARITHMETIC[sign.rstrip("=")] + sign[1:],)
        elif sign.rstrip("=") in INTEGERS_ONLY and both <= INTEGER_KINDS:
            others = (INTEGERS_ONLY[sign.rstrip("=")] + "=" * sign.endswith("="),)
        for other in others:
            before = self.text[cursor.extent.start.offset : at + found.start()]
            behind = self.text[at + found.end() : cursor.extent.end.offset]
            if sign in CONNECTORS:
                before = f"({before.rstrip()}) "
            self.add(cursor, before + other + behind)

    def mutate_overloaded(self, cursor, children):
        """The arithmetic inside a class."""
        sign = cursor.spelling.replace("operator", "")
        if sign not in ("+", "-", "*") or len(children) != 3:
            return
        left, _, right = children
        if class_of(left) == class_of(right) == class_of(cursor):
            self.add(cursor, f"{self.text_of(left)} {'-' if sign == '+' else '+'} {self.text_of(right)}")

    def mutate_unary(self, cursor, operand):
        text, of = self.text_of(cursor), self.text_of(operand)
        if text.startswith(("++", "--")):
            self.add(cursor, ("--" if text[0] == "+" else "++") + of)
        elif text.startswith("-") and kind_of(operand) in NUMBER_KINDS:
            self.add(cursor, of)
        elif text.startswith("!"):
            self.add(cursor, "!" + text)

    def mutate_constant(self, cursor, parent):
        text = self.text_of(cursor)
        if parent.kind in (Kind.MEMBER_REF_EXPR, Kind.DECL_REF_EXPR):
            return  # a template's argument
        if cursor.kind in LITERALS and not re.match(r"[\d.']|true|false", text):
            return  # inside a macro
        if cursor.kind == Kind.CXX_BOOL_LITERAL_EXPR:
            self.add(cursor, "false" if text == "true" else "true")
            return
        for sign in "+-":
            self.add(cursor, f"{text} {sign} 1")

    def mutate_returned(self, value):
        kind, text = kind_of(value), self.text_of(value)
        if kind == TypeKind.BOOL:
            self.negate(value)
        elif is_constant(inside(value)) or inside(value).kind == Kind.CXX_NULL_PTR_LITERAL_EXPR:
            return
        elif kind in NUMBER_KINDS:
            self.add(value, f"({text}) + 1")
        elif kind == TypeKind.ENUM:
            self.add(value, f"static_cast<std::decay_t<decltype({text})>>(static_cast<int>({text}) + 1)")
        elif kind == TypeKind.POINTER:
            self.add(value, "nullptr")

    def negate(self, condition):
        """Relations, literals and negations are negated for themselves."""
        core, text = inside(condition), self.text_of(condition)
        is_relation = core.kind == Kind.BINARY_OPERATOR and not re.search(r"&&|\|\|", text)
        if is_relation or core.kind in LITERALS | {Kind.UNARY_OPERATOR}:
            return
        if kind_of(core) == TypeKind.BOOL and not core.spelling.startswith("operator"):  # no conversion of a class
            self.add(condition, f"!({text})")


def read(path):
    """Result: the text with a character for each byte, since the compiler counts in bytes."""
    return path.read_bytes().decode("latin-1")


def find_mutants(root, names):
    """Result: the mutants of the files, in the order of their places."""
    mutants = set()
    for name in names:
        unit = Index.create().parse(str(root / name), args=["-xc++", "-std=c++17", f"-I{root}"])
        errors = [error for error in unit.diagnostics if error.severity >= error.Error]
        if errors:
            raise SystemExit(f"mutants: {errors[0]}")
        file = File(name, read(root / name))
        for cursor in unit.cursor.get_children():
            if cursor.location.file is not None and cursor.location.file.name == str(root / name):
                file.visit(cursor, unit.cursor)
        mutants |= file.mutants
    return sorted(mutants, key=lambda m: (m.file, m.start, -m.end, m.changed or ""))


def build_in(text, numbered):
    """Result: the file's text with its mutants, given as (number, mutant), as choices at run time."""
    places = {}
    for number, mutant in numbered:
        places.setdefault((mutant.start, -mutant.end), []).append((number, mutant.changed))

    queue = sorted(places)

    def render(start, end):
        """The text between, with the choices in it; takes them from the queue."""
        out, at = [], start
        while queue and queue[0][0] < end:
            first, last = queue[0][0], -queue[0][1]
            choices = places[queue.pop(0)]
            changed = render(first, last)
            for number, other in choices:
                if other is not None:
                    changed = f"(mutant::On({number}) ? ({other}) : ({changed}))"
            for number, other in choices:
                if other is None:
                    changed = f"if (!mutant::On({number})) {changed}"
            out += [text[at:first], changed]
            at = last
        return "".join(out) + text[at:end]

    return render(0, len(text))
