#!/usr/bin/python3
"""Writes api-4.8.txt, the names that Qt 4.8 offers, from its headers.

    scripts/qt4/list_api.py QT4_INCLUDE > scripts/qt4/api-4.8.txt

Needed only to make the list anew; QT4_INCLUDE is the include folder of a built Qt 4.8.7 for X11.
"""
import os
import sys

import clang.cindex as clang
from clang.cindex import AccessSpecifier, CursorKind

from api import (CALLABLES, CLASSES, GLOBAL, MACROS, Api, arity, bare_name, headers_of, is_template,
                 scope_of)

MODULES = ["QtCore", "QtGui", "QtOpenGL"]
NOT_IN_UMBRELLAS = ["QtGui/QX11Info", "QtGui/QPrintEngine", "QtGui/qx11embed_x11.h", "QtCore/QMetaType"]
PLAIN_NAMES = {
    CursorKind.ENUM_DECL, CursorKind.ENUM_CONSTANT_DECL, CursorKind.TYPEDEF_DECL, CursorKind.TYPE_ALIAS_DECL,
    CursorKind.FIELD_DECL, CursorKind.VAR_DECL,
}
HEADING = [
    "The public and protected names of Qt 4.8.7's QtCore, QtGui and QtOpenGL on X11, one class or",
    "namespace a line: its bases after \"<\", then its members. A function stands with the number of",
    "arguments it takes, name/least-most, and with <> when it is itself a template. What a class inherits",
    "is not repeated. \"::\" is the global scope, \"#include<...>\" a module's headers, \"#define\" the macros.",
    "Made by scripts/qt4/list_api.py; do not edit.",
]


# What Q_OBJECT puts into every class; the list has it in QObject alone.
OF_Q_OBJECT = {"metaObject", "staticMetaObject", "tr", "trUtf8"}


def is_left_out(cursor):
    if cursor.access_specifier == AccessSpecifier.PRIVATE or cursor.spelling.startswith("qt_"):
        return True
    if cursor.kind == CursorKind.CONSTRUCTOR and (cursor.is_copy_constructor() or cursor.is_move_constructor()):
        return True  # every class has them, and they would hide a later constructor with one argument
    return cursor.spelling in OF_Q_OBJECT and scope_of(cursor) not in ("QObject", "QCoreApplication")


class Lister:
    def __init__(self, root):
        self.root, self.api = os.path.realpath(root), Api()

    def from_qt(self, cursor):
        place = cursor.location.file
        return place is not None and os.path.realpath(place.name).startswith(os.path.dirname(self.root))

    def add_macros(self, unit):
        names = self.api.scope(MACROS).names
        for cursor in unit.cursor.get_children():
            if cursor.kind == CursorKind.MACRO_DEFINITION and self.from_qt(cursor):
                if not cursor.spelling.endswith(("_H", "_P_H")):
                    names.add(cursor.spelling)

    def add_headers(self):
        for module in MODULES:
            for name in os.listdir(os.path.join(self.root, module)):
                if os.path.isfile(os.path.join(self.root, module, name)):
                    self.api.scope(headers_of(module)).names.add(name)

    def walk(self, cursors):
        for child in cursors:
            if is_left_out(child):
                continue
            if child.kind in (CursorKind.NAMESPACE, CursorKind.LINKAGE_SPEC, CursorKind.UNEXPOSED_DECL):
                self.walk(child.get_children())
            elif child.kind in CLASSES:
                self.add_class(child)
            elif child.kind in CALLABLES:
                least, most = arity(child)
                self.api.scope(scope_of(child)).add_function(bare_name(child), least, most, is_template(child))
            elif child.kind in PLAIN_NAMES:
                self.api.scope(scope_of(child)).names.update([child.spelling] if child.spelling else [])
                self.walk(child.get_children())

    def add_class(self, cursor):
        outer = scope_of(cursor)
        name = bare_name(cursor)
        if name:
            self.api.scope(outer).names.add(name)
        if not cursor.is_definition():
            return
        scope = self.api.scope(name if outer == GLOBAL else f"{outer}::{name}")
        for child in cursor.get_children():
            if child.kind == CursorKind.CXX_BASE_SPECIFIER and child.access_specifier != AccessSpecifier.PRIVATE:
                base = child.type.get_declaration().spelling or child.type.spelling.split("<")[0]
                if base and base not in scope.bases:
                    scope.bases.append(base)
        self.walk(cursor.get_children())


def main(root):
    lister = Lister(root)
    text = "".join(f"#include <{each}/{each}>\n" for each in MODULES)
    text += "".join(f"#include <{each}>\n" for each in NOT_IN_UMBRELLAS)
    flags = ["-std=c++17", "-w"] + [f"-isystem{each}" for each in [root, *(f"{root}/{each}" for each in MODULES)]]
    unit = clang.Index.create().parse("all.cpp", flags, [("all.cpp", text)],
                                      clang.TranslationUnit.PARSE_DETAILED_PROCESSING_RECORD)
    errors = [str(each) for each in unit.diagnostics if each.severity >= clang.Diagnostic.Error]
    if errors:
        sys.exit("\n".join(errors[:10]))
    lister.add_macros(unit)
    lister.add_headers()
    lister.walk(each for each in unit.cursor.get_children() if lister.from_qt(each))
    lister.api.write(sys.stdout, HEADING)


if __name__ == "__main__":
    main(sys.argv[1])
