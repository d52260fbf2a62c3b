"""What the moc of Qt 4.8.7 cannot read, in the headers it is given and in our own headers that they include.

moc reads the headers with a parser of its own, which knows C++98. Most of what is newer it passes over; the
constructs below it takes for an error or, worse, for something else, without a word.
"""
import re

COMMENT_OR_TEXT = re.compile(r"""//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"|(?<!\d)'(?:\\.|[^'\\\n])'""", re.S)
# A header that moc is run on.
HAS_META_OBJECT = re.compile(r"^\s*Q_(OBJECT|GADGET)\b", re.M)
# Anywhere in what moc reads.
IN_ANY_HEADER = [
    (re.compile(r"\bnamespace\s+\w+\s*::"), "namespace a::b (moc 4 stops there)"),
    (re.compile(r'\b(?:u8|u|U|L)?R"'), "a raw string (moc 4 loses its place)"),
    (re.compile(r"\b\d[\w.]*'\w"), "a digit separator (moc 4 takes it for a character)"),
]
# Between "class" and the body.
CLASS_HEAD = re.compile(r"\b(?:class|struct)\b([^;{}()<>=]*?)(?::(?!:)[^;{}]*)?\{")
IN_CLASS_HEAD = [
    (re.compile(r"\bfinal\b"), "a final class (moc 4 takes \"final\" for its name)"),
    (re.compile(r"\[\["), "an attribute of a class (moc 4 does not see the class)"),
    (re.compile(r"^\s*\w+\s+\w+\s+\w"), "two macros before the name of a class (moc 4 does not see the class)"),
]
SECTION = re.compile(r"\b(?:Q_SIGNALS|Q_SLOTS)\s*:(.*?)(?=\b(?:public|protected|private|Q_SIGNALS)\b|\Z)", re.S)
IN_SIGNALS_AND_SLOTS = [
    (re.compile(r"\[\["), "an attribute of a signal or slot"),
    (re.compile(r"\bnoexcept\s*\("), "noexcept(...) on a signal or slot"),
    (re.compile(r"\)\s*(?:const\s*)?->"), "a trailing return type of a signal or slot"),
    (re.compile(r"\)\s*(?:const\s*)?&"), "a reference-qualified signal or slot"),
    (re.compile(r"\busing\b"), "using among signals or slots"),
    (re.compile(r"\btemplate\b"), "a template among signals or slots"),
    (re.compile(r"\(\s*\*"), "a function pointer in a signal or slot"),
]


def blank(match):
    """Keeps the lines where they are, and a raw string's prefix something to find."""
    text = match.group(0)
    hidden = re.sub(r"[^\n]", " ", text)
    return '"' + hidden[1:-1] + '"' if text.startswith('"') else hidden


def has_meta_object(text):
    return HAS_META_OBJECT.search(COMMENT_OR_TEXT.sub(blank, text)) is not None


def check(text):
    """(line, what) for each thing in one header that moc 4 would trip over."""
    code = COMMENT_OR_TEXT.sub(blank, text)
    yield from _search(code, 0, len(code), IN_ANY_HEADER)
    if not HAS_META_OBJECT.search(code):
        return
    for head in CLASS_HEAD.finditer(code):
        if HAS_META_OBJECT.search(_body(code, head.end())):
            yield from _search(code, head.start(1), head.end(1), IN_CLASS_HEAD)
    for section in SECTION.finditer(code):
        yield from _search(code, section.start(1), section.end(1), IN_SIGNALS_AND_SLOTS)


def _body(code, start):
    """What stands between a brace, at whose end start is, and its partner."""
    depth = 1
    for brace in re.finditer(r"[{}]", code[start:]):
        depth += 1 if brace.group() == "{" else -1
        if depth == 0:
            return code[start:start + brace.start()]
    return code[start:]


def _search(code, start, end, rules):
    for pattern, what in rules:
        for match in pattern.finditer(code[start:end]):
            yield code.count("\n", 0, start + match.start()) + 1, what
