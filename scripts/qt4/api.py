"""The list of names that Qt 4.8 offers (api-4.8.txt): how it is written, read and asked."""
import clang.cindex as clang
from clang.cindex import CursorKind

CALLABLES = {
    CursorKind.FUNCTION_DECL, CursorKind.FUNCTION_TEMPLATE, CursorKind.CXX_METHOD,
    CursorKind.CONSTRUCTOR, CursorKind.CONVERSION_FUNCTION,
}
CLASSES = {
    CursorKind.CLASS_DECL, CursorKind.STRUCT_DECL, CursorKind.UNION_DECL,
    CursorKind.CLASS_TEMPLATE, CursorKind.CLASS_TEMPLATE_PARTIAL_SPECIALIZATION,
}
# The scopes of the list that are not classes; no class can be called so.
GLOBAL, MACROS = "::", "#define"


def headers_of(module):
    return f"#include<{module}>"


def scope_of(cursor):
    """The classes and namespaces around a declaration, as a::b; an enumerator counts to its enumeration's scope."""
    path = []
    parent = cursor.semantic_parent
    while parent is not None and parent.kind != CursorKind.TRANSLATION_UNIT:
        transparent = parent.kind in (CursorKind.ENUM_DECL, CursorKind.LINKAGE_SPEC)
        if not transparent and parent.spelling:
            path.insert(0, parent.spelling)
        parent = parent.semantic_parent
    return "::".join(path) or GLOBAL


def bare_name(cursor):
    """The name without template arguments: a constructor of QList<T> is called QList."""
    name = cursor.spelling
    if cursor.kind == CursorKind.CONVERSION_FUNCTION:
        return "operator()" if name == "operator()" else "conversion"
    return name if name.startswith("operator") else name.split("<")[0]


def is_template(cursor):
    """Is the function itself a template, or made from one? A member of a class template is not."""
    if cursor.kind == CursorKind.FUNCTION_TEMPLATE:
        return True
    origin = clang.conf.lib.clang_getSpecializedCursorTemplate(cursor)
    return origin is not None and origin.kind == CursorKind.FUNCTION_TEMPLATE


def parameters(function):
    """The parameters; a template's are children like any other."""
    return [child for child in function.get_children() if child.kind == CursorKind.PARM_DECL]


def has_default(parameter):
    return any(child.kind.is_expression() for child in parameter.get_children())


def arity(function):
    """(least, most) arguments of a call."""
    all_parameters = parameters(function)
    most = 99 if function.type.is_function_variadic() else len(all_parameters)
    return sum(not has_default(each) for each in all_parameters), most


class Scope:
    """One class or namespace: its bases, its plain names, its functions with the arguments they take."""

    def __init__(self):
        self.bases, self.names, self.functions = [], set(), {}

    def add_function(self, name, least, most, template):
        self.functions.setdefault(name, set()).add((least, most, template))

    def takes(self, name, arguments, template):
        """Is there a function of that name for that many arguments? A call of a template needs a template."""
        return any(least <= arguments <= most and (is_a_template or not template)
                   for least, most, is_a_template in self.functions.get(name, ()))

    def words(self, inherited):
        """What the scope adds to what it inherits, as the list writes it."""
        for name in self.names - set(self.functions):
            if not any(name in base.names for base in inherited):
                yield name
        for name, forms in self.functions.items():
            for form in forms:
                if not any(_covers(base.functions.get(name, ()), form) for base in inherited):
                    if not _covers(forms - {form}, form):
                        yield _word(name, form)


def _covers(forms, form):
    """Does one of the forms take every call that this one takes?"""
    return any(least <= form[0] and form[1] <= most and template == form[2] for least, most, template in forms)


def _word(name, form):
    least, most, template = form
    count = str(least) if least == most else f"{least}-{most}"
    return f"{name}{'<>' if template else ''}/{count}"


class Api:
    def __init__(self):
        self.scopes = {}

    def scope(self, name):
        return self.scopes.setdefault(name, Scope())

    def write(self, out, heading):
        for line in heading:
            print(f"# {line}".rstrip(), file=out)
        for name in sorted(self.scopes):
            scope = self.scopes[name]
            bases = f" < {','.join(scope.bases)}" if scope.bases else ""
            inherited = list(self.chain(name))[1:]
            print(f"{name}{bases}", *sorted(scope.words(inherited)), file=out)

    @staticmethod
    def read(path):
        api = Api()
        with open(path, encoding="ascii") as lines:
            for line in lines:
                if not line.startswith("# "):
                    api._read_scope(line.split())
        return api

    def _read_scope(self, words):
        scope = self.scope(words[0])
        rest = words[1:]
        if rest and rest[0] == "<":
            scope.bases = rest[1].split(",")
            rest = rest[2:]
        for word in rest:
            name, slash, count = word.rpartition("/") if word[-1].isdigit() else (word, "", "")
            if not slash:
                scope.names.add(word)
                continue
            least, _, most = count.partition("-")
            template = name.endswith("<>")
            scope.add_function(name[:-2] if template else name, int(least), int(most or least), template)

    def chain(self, name):
        """The scope and, for a class, all that it inherits."""
        scope = self.scopes.get(name)
        if scope is None:
            return
        yield scope
        for base in scope.bases:
            yield from self.chain(base)

    def knows(self, scope_name, name):
        return any(name in scope.names or name in scope.functions for scope in self.chain(scope_name))

    def knows_call(self, scope_name, name, arguments, template):
        return any(scope.takes(name, arguments, template) for scope in self.chain(scope_name))
