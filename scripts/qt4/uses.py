"""Finds what a source uses of Qt and holds each use against the list of Qt 4.8's names.

The source is parsed with the Qt that is installed. Every reference to something that one of Qt's headers
declares must be in the list: the class, the member, and for a call the number of arguments that are really
written, so that a later overload or a later parameter is seen as well.
"""
import re

import clang.cindex as clang
from clang.cindex import AccessSpecifier, CursorKind

from api import CALLABLES, CLASSES, GLOBAL, MACROS, bare_name, headers_of, is_template, scope_of

QT_HEADER = re.compile(r"/(Qt[A-Z]\w*)/[^/]+$")
OPTIONS = clang.TranslationUnit.PARSE_DETAILED_PROCESSING_RECORD
REFERENCES = {
    CursorKind.TYPE_REF, CursorKind.TEMPLATE_REF, CursorKind.MEMBER_REF, CursorKind.DECL_REF_EXPR,
    CursorKind.MEMBER_REF_EXPR,
}
# What SIGNAL and SLOT make of name(types).
MEMBER_STRING = re.compile(r'^"[12](\w+)\(([^)]*)\)')
# Every class has this, written out or not.
IMPLICIT = {"operator="}
# Functions of Qt 4 that Qt 5.15 made a template of, for the same calls.
BECAME_TEMPLATES = {("QString", "arg")}
# Every source starts with these, so that they are read once for all. What it includes itself is checked all the same.
COMMON_HEADERS = ["QtWidgets/QtWidgets", "QtOpenGL/QtOpenGL", "QtPrintSupport/QtPrintSupport", "QX11Info",
                  "boost/signals2.hpp", "gmock/gmock.h", "functional", "memory", "string", "vector"]


def from_qt(cursor):
    place = cursor.location.file
    return place is not None and QT_HEADER.search(place.name) is not None


def ancestors(declaration):
    """The class and what it inherits."""
    definition = declaration.get_definition() or declaration
    yield definition
    for child in definition.get_children():
        if child.kind == CursorKind.CXX_BASE_SPECIFIER:
            yield from ancestors(child.type.get_canonical().get_declaration())


def class_of(expression):
    """The class that an expression is of or points to, if any."""
    kind = expression.type.get_canonical()
    pointee = kind.get_pointee()
    declaration = (pointee if pointee.kind != clang.TypeKind.INVALID else kind).get_declaration()
    return declaration if declaration.kind in CLASSES else None


def written_arguments(call):
    """The arguments in the text; those that are left to their defaults have no place of their own."""
    return [each for each in call.get_arguments() if each is not None and each.extent.start.file is not None]


def named_member(expression):
    """The (name, types) of SIGNAL(name(types)) or SLOT(name(types)); None for any other expression."""
    if expression.spelling != "qFlagLocation":
        return None
    texts = [each.spelling for each in expression.walk_preorder() if each.kind == CursorKind.STRING_LITERAL]
    match = texts and MEMBER_STRING.match(texts[0])
    return match.groups() if match else None


def place_in_file(cursor):
    """Where the text stands: for what a macro brings along, the macro's name; for its argument, the argument."""
    file, line, column, offset = clang.c_object_p(), clang.c_uint(), clang.c_uint(), clang.c_uint()
    clang.conf.lib.clang_getFileLocation(cursor.location, *map(clang.byref, (file, line, column, offset)))
    return cursor.location.file.name, offset.value


class UseFinder:
    """Reports each use that Qt 4.8 does not know, as (file, line, what)."""

    # What this process has checked already: a header says the same wherever it is included.
    files_done = set()

    def __init__(self, api, is_ours):
        self.api, self.is_ours, self.found = api, is_ours, set()
        self.macro_places = set()

    def report(self, cursor, what):
        if cursor.kind != CursorKind.MACRO_INSTANTIATION and place_in_file(cursor) in self.macro_places:
            return  # what Qt's own macros expand to is theirs
        self.found.add((cursor.location.file.name, cursor.location.line, what))

    def check(self, unit):
        names = {}
        for cursor in unit.cursor.get_children():
            place = cursor.location.file
            if place is None:
                continue
            if place.name not in names:
                names[place.name] = place.name not in self.files_done and self.is_ours(place.name)
            if not names[place.name]:
                continue
            if cursor.kind == CursorKind.MACRO_INSTANTIATION:
                self.check_macro(cursor)
            elif cursor.kind == CursorKind.INCLUSION_DIRECTIVE:
                self.check_inclusion(cursor)
            else:
                self.walk(cursor, [])
        self.files_done.update(names)

    def walk(self, cursor, around):
        if cursor.kind == CursorKind.CALL_EXPR:
            self.check_call(cursor, around)
        elif cursor.kind in REFERENCES:
            self.check_reference(cursor, around)
        elif cursor.kind == CursorKind.CXX_METHOD:
            self.check_overrides(cursor)
        inner = around + [cursor]
        for child in cursor.get_children():
            self.walk(child, inner)

    def check_macro(self, cursor):
        definition = cursor.referenced or cursor.get_definition()
        if definition is None or not from_qt(definition) or cursor.spelling.startswith("GL_"):
            return  # OpenGL's names come with its own headers too
        self.macro_places.add((cursor.location.file.name, cursor.location.offset))
        if not any(self.api.knows(scope, cursor.spelling) for scope in (MACROS, GLOBAL)):
            self.report(cursor, cursor.spelling)

    def check_inclusion(self, cursor):
        included = cursor.get_included_file()
        match = included is not None and QT_HEADER.search(included.name)
        if not match:
            return
        module, slash, header = cursor.spelling.rpartition("/")
        modules = [module] if slash else ["QtCore", "QtGui", "QtOpenGL"]
        if not any(self.api.knows(headers_of(each), header) for each in modules):
            self.report(cursor, f"#include <{cursor.spelling}>")

    def check_call(self, cursor, around):
        function = cursor.referenced
        if function is None or function.kind not in CALLABLES:
            return
        arguments = written_arguments(cursor)
        self.check_connections(cursor, arguments)
        if not from_qt(function) or self.comes_with_every_class(function, arguments):
            return
        count = len(arguments)
        if function.spelling.startswith("operator") and function.semantic_parent.kind in CLASSES:
            count = len(list(function.get_arguments()))
        self.require(cursor, function, around, count)

    @staticmethod
    def comes_with_every_class(function, arguments):
        if function.kind == CursorKind.CONSTRUCTOR:
            return function.is_copy_constructor() or function.is_move_constructor() or not arguments
        return function.spelling in IMPLICIT

    def check_reference(self, cursor, around):
        target = cursor.referenced
        if target is None or not from_qt(target):
            return
        if target.kind in CALLABLES:
            if not target.spelling.startswith("operator"):
                self.require(cursor, target, around, None)
        elif target.kind.is_declaration() and target.spelling and not self.is_parameter(target):
            self.require(cursor, target, around, None)

    @staticmethod
    def is_parameter(target):
        return target.kind in (CursorKind.PARM_DECL, CursorKind.TEMPLATE_TYPE_PARAMETER,
                               CursorKind.TEMPLATE_NON_TYPE_PARAMETER, CursorKind.TEMPLATE_TEMPLATE_PARAMETER)

    def require(self, cursor, target, around, count):
        """Qt 4.8 must have the target, where it is declared here or in the class it is called through."""
        if target.access_specifier == AccessSpecifier.PRIVATE or target.spelling.startswith("qt_"):
            return  # the list has neither: what a class keeps for its friends, and moc's
        name = bare_name(target)
        scopes = [scope_of(target)] + self.classes_written(cursor, around)
        if count is None:
            known = any(self.api.knows(scope, name) for scope in scopes)
        else:
            template = is_template(target) and (scopes[0], name) not in BECAME_TEMPLATES
            known = any(self.api.knows_call(scope, name, count, template) for scope in scopes)
            known = known or name.startswith("operator") and self.api.knows(GLOBAL, name)
        if not known:
            if count is not None and not any(self.api.knows(scope, name) for scope in scopes):
                count = None  # the name alone says it
            arguments = "" if count is None else f" with {count} argument{'s' if count != 1 else ''}"
            owner = "" if scopes[0] == GLOBAL else f"{scopes[0]}::"
            self.report(cursor, f"{owner}{name}{arguments}")

    def classes_written(self, cursor, around):
        """The Qt classes through which a member is named: X::m, x.m, or the class whose method says m."""
        written = []
        for child in cursor.walk_preorder():
            if child.kind == CursorKind.TYPE_REF and child.referenced is not None:
                written.append(child.referenced)
            elif child.kind.is_expression() and child is not cursor:
                written.append(class_of(child))
        written += [each.semantic_parent for each in around if each.kind in CALLABLES]
        written += [each for each in around if each.kind in CLASSES]
        names = []
        for declaration in written:
            if declaration is not None and declaration.kind in CLASSES:
                names += [each.spelling for each in ancestors(declaration) if from_qt(each)]
        return names

    def check_connections(self, call, arguments):
        """SIGNAL and SLOT name a member by a string; the object is the argument before."""
        for holder, argument in zip(arguments, arguments[1:]):
            member = named_member(argument)
            declaration = member and class_of(self.without_conversions(holder))
            if declaration:
                self.require_member(call, declaration, *member)

    @staticmethod
    def without_conversions(expression):
        """An object is passed as QObject*; its own class stands inside of the conversion."""
        while expression.kind == CursorKind.UNEXPOSED_EXPR:
            inner = [child for child in expression.get_children() if child.kind.is_expression()]
            if len(inner) != 1:
                break
            expression = inner[0]
        return expression

    def require_member(self, cursor, declaration, name, types):
        count = len(types.split(",")) if types else 0
        lineage = list(ancestors(declaration))
        for each in lineage:
            if not from_qt(each) and any(child.spelling == name for child in each.get_children()):
                return
        if not any(self.api.knows_call(each.spelling, name, count, False) for each in lineage if from_qt(each)):
            self.report(cursor, f"{declaration.spelling}::{name}({types})")

    def check_overrides(self, method):
        """A virtual of Qt that is overridden must be one in Qt 4.8 too."""
        for overridden in overridden_by(method):
            owner = scope_of(overridden)
            if overridden.spelling.startswith("qt_"):
                continue  # moc's
            if from_qt(overridden) and overridden.kind == CursorKind.CXX_METHOD:
                if not self.api.knows(owner, bare_name(overridden)):
                    self.report(method, f"{owner}::{bare_name(overridden)}, overridden")


def overridden_by(method):
    cursors, count = clang.POINTER(clang.Cursor)(), clang.c_uint()
    library = clang.conf.lib
    library.clang_getOverriddenCursors(method, clang.byref(cursors), clang.byref(count))
    result = []
    for i in range(count.value):
        each = cursors[i]
        each._tu = method._tu  # the binding keeps the unit alive through this
        result.append(each)
    return result


def precompile(folder, flags):
    """Parses the common headers into a file in the folder; gives the flags that make a source start with them."""
    header, compiled = f"{folder}/common.h", f"{folder}/common.pch"
    with open(header, "w", encoding="ascii") as file:
        file.writelines(f"#include <{each}>\n" for each in COMMON_HEADERS)
    unit = clang.Index.create().parse(header, ["-x", "c++-header", *flags], options=OPTIONS)
    unit.save(compiled)
    return ["-include-pch", compiled]


def parse(path, flags):
    return clang.Index.create(excludeDecls=True).parse(path, ["-x", "c++", *flags], options=OPTIONS)


def errors_of(unit):
    return [str(each) for each in unit.diagnostics if each.severity >= clang.Diagnostic.Error]

