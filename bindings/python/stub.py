"""Writes the stub of the package: standard input has a line for each command, with its name, its
signature, what it returns, and the kinds of its arguments, "name: kind", all with tabs between."""

import builtins
import keyword
import re
import sys

HEADER = '''\
# Made by bindings/python/stub.py.
import builtins
from collections.abc import Callable, Iterable
from typing import Any, Final, TypeVar, overload

from vstring._values import FAIL as FAIL, Eq as Eq, Error as Error, Name as Name, Range as Range
from vstring._values import Constant, _ as _

_R = TypeVar("_R")
_T = TypeVar("_T")
_Items = list[_T] | tuple[_T, ...] | set[_T] | frozenset[_T]
_Text = str | builtins.bytes | Name
_Procedure = Callable[..., object] | Name

__version__: Final[str]

@overload
def each(command: str, iterable: Iterable[object], /, *arguments: object, **equations: object) -> list[Any]: ...
@overload
def each(command: Callable[..., _R], iterable: Iterable[object], /, *arguments: object, **equations: object) -> list[_R]: ...
'''

# The first that is found in the kind of an argument, or the first that what is returned begins
# with. TEXT and ITEMS depend on what kind of text a call is about; a WORD is a text or a name.
KINDS = (
    ("procedure", "_Procedure"),
    ("anything", "object"),
    ("quoted name", "Name"),
    ("range", "Range"),
    ("string, or a list", "TEXT | ITEMS"),
    ("list of strings", "ITEMS"),
    (r"integer.* or a string|string, or an integer", "int | TEXT"),
    (r"^an integer|^1, 2 or 3", "int"),
    ("^a string", "TEXT"),
    ("", "WORD"),
)
RETURNS = (
    ("nothing", "None"),
    ("true or false", "bool"),
    (r"an integer.*for a list|a sequence of integers, or", "Any"),
    (r"an integer|-1", "int"),
    ("a float", "float"),
    ("a list of (three )?integers", "list[int]"),
    ("a list of strings", "list[TEXT]"),
    ("a list of pairs", "list[list[int]]"),
    ("a list of equations", "list[Eq]"),
    ("a list", "list[Any]"),
    ("a sequence of strings.*nothing for", "tuple[TEXT, ...] | TEXT | None"),
    ("a sequence of strings", "tuple[TEXT, ...] | TEXT"),
    ("a sequence of integers", "tuple[int, ...] | list[int]"),
    ("a sequence of pairs", "tuple[list[int], ...] | list[list[int]]"),
    ("a string", "TEXT"),
    ("", "Any"),
)
# Where all texts are str, where the first is bytes, where nothing is known.
STR = {"TEXT": "str", "WORD": "str | Name", "ITEMS": "_Items[str]"}
BYTES = {"TEXT": "builtins.bytes", "WORD": "_Text", "ITEMS": "_Items[builtins.bytes]"}
ANY = {"TEXT": "_Text", "WORD": "_Text", "ITEMS": "_Items[Any]"}


class Parameters:
    """What is between the parentheses of a signature."""

    def __init__(self, text, kinds):
        self.kinds = kinds
        self.positional = []  # (name, type, whether it may be left out)
        self.rest = ""  # the type of *arguments
        self.keywords = {}
        self.options = ""  # the type of **options
        self.read(text, False)

    def read(self, text, optional):
        while text := text.strip(" ,"):
            if text.startswith("["):
                end = matching(text)
                inner = text[1:end]
                if inner.endswith("...") and not inner.startswith(","):
                    self.add_list(inner, optional)
                else:
                    self.read(inner, True)
                text = text[end + 1 :]
            elif text.startswith("name0"):
                self.rest, text = "Name", ""
            else:
                item, text = re.fullmatch(r"([^\[,]*)(.*)", text).groups()
                self.add(item.strip(), optional, text.replace(" ", "") == ",...")

    def add_list(self, inner, optional):
        kind = self.kind(inner.split(",")[0])
        item = "_Items[Eq]" if "=" in inner else "_Items[int]" if kind == "int" else "ITEMS"
        self.positional.append(("items", item, optional))

    def add(self, item, optional, repeated):
        first, *others = (part.strip() for part in item.split("|"))
        if item == "...":
            if not self.options:
                self.rest = "object"
        elif item == "pattern = template":
            self.positional.append(("equation", "Eq", optional))
        elif ".." in item:
            self.positional.append(("range", "Range", optional))
        elif "=" not in first:
            name = first if not others or any("=" in part for part in others) else "choice"
            self.positional.append((name, self.kind(first), optional))
            self.add_keywords(part for part in others if "=" in part)
        elif repeated:
            self.options = "bool"
        else:
            self.add_keywords([first, *(part for part in others if "=" in part)])

    def add_keywords(self, equations):
        for equation in equations:
            name, value = (side.strip() for side in equation.split("="))
            self.keywords[name] = self.kind(value)

    def kind(self, name):
        return first_match(KINDS, self.kinds.get(name.strip(), ""))

    def written(self, texts, first_text=None):
        """The parameters, with bytes alone as the first text if that is given; the types alone."""
        parts, types = [], []
        for name, kind, optional in self.positional:
            is_text = "TEXT" in kind or "ITEMS" in kind
            now = fill(kind, texts)
            if is_text and first_text:
                now = fill(kind.replace("int | ", ""), first_text)
                first_text, optional = None, False
            name += "_" if keyword.iskeyword(name) else ""
            parts.append(f"{name}: {now}" + (" = ..." if optional else ""))
            types.append(now + str(optional))
        if parts:
            parts.append("/")
        if self.rest or self.keywords or self.options:
            parts.append(f"*rest: {self.rest or 'Eq'}")
        parts += [f"{name}: {fill(kind, texts)} = ..." for name, kind in self.keywords.items()]
        if self.options:
            parts.append(f"**options: {self.options}")
        return ", ".join(parts), tuple(types)

    def texts(self):
        return sum("TEXT" in kind or "ITEMS" in kind for _, kind, _ in self.positional)


def matching(text):
    depth = 0
    for i, c in enumerate(text):
        depth += (c == "[") - (c == "]")
        if depth == 0:
            return i
    raise ValueError(text)


def first_match(table, text):
    return next(kind for pattern, kind in table if re.search(pattern, text))


def fill(kind, texts):
    return re.sub("TEXT|WORD|ITEMS", lambda word: texts[word[0]], kind)


def overloads(signature, returns, kinds):
    result = first_match([("^" + pattern, kind) for pattern, kind in RETURNS], returns)
    result += " | Constant" if "FAIL" in returns and result != "Any" else ""
    if "list of patterns" in returns:
        kinds["pattern"] = "a string, or a list of strings"
    alternatives = [
        Parameters(text, kinds) for text in re.findall(r"\w+\(((?:[^()])*)\)", signature)
    ]
    mixed = "Any" if "list[" in result else "str | builtins.bytes"
    ways = [(STR, None, "str", 0), (ANY, BYTES, "builtins.bytes", 1), (ANY, None, mixed, 2)]
    seen = {}
    for texts, first_text, given, least in ways if "TEXT" in result else [(ANY, None, "", 0)]:
        for parameters in alternatives:
            if parameters.texts() >= least:
                written, types = parameters.written(texts, first_text)
                seen.setdefault(types, f"({written}) -> {fill(result, {'TEXT': given})}")
    return list(seen.values())


def main():
    names = []
    print(HEADER)
    for line in sys.stdin:
        name, signature, returns, *kinds = line.rstrip("\n").split("\t")
        if signature == "=":  # an alias
            print(f"{name} = {returns}")
        else:
            written = overloads(signature, returns, dict(kind.split(": ", 1) for kind in kinds))
            for one in written:
                print("@overload\n" * (len(written) > 1) + f"def {name}{one}: ...")
        names.append(name)
    public = [name for name in [*names, "each"] if not hasattr(builtins, name)]
    print("\n__all__ =", ["FAIL", "Eq", "Error", "Name", "Range", *public])


if __name__ == "__main__":
    main()
