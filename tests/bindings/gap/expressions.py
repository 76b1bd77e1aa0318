"""Velmor's expressions, as far as the examples of the commands go: read, and written for velmor or GAP.

A node is a tuple: its kind, and what it is made of.
"""
import ast
import re

TOKEN = re.compile(r'\s*("(?:[^"\\]|\\.)*"|\d+\.\d+(?:e[+-]?\d+)?|\d+|\w+|\.\.|->|[-=+,()\[\]])')
BINARY = ["=", "..", "+"]  # from weak to strong


class Reader:
    def __init__(self, text):
        self.tokens = TOKEN.findall(text) + [""]

    def next(self):
        return self.tokens.pop(0)

    def skips(self, token):
        return self.tokens[0] == token and self.next() == token

    def items(self, end):
        found = []
        while not self.skips(end):
            found.append(self.expression())
            self.skips(",")
        return found

    def expression(self):
        procedure = re.match(r"(\w+|\( \w+ (?:, \w+ )*\)) ->", " ".join(self.tokens[:9]))
        if procedure:
            parameters = re.findall(r"\w+", procedure[1])
            while self.next() != "->":
                pass
            return ("procedure", parameters, self.expression())
        return self.binary(0)

    def binary(self, level):
        if level == len(BINARY):
            return self.term()
        left = self.binary(level + 1)
        while self.skips(BINARY[level]):
            left = (BINARY[level], left, self.binary(level + 1))
        return left

    def term(self):
        token = self.next()
        if token == "-":
            return ("integer", -int(self.next()))
        if token == "[":
            return ("list", self.items("]"))
        if token[0] == '"':
            return ("string", ast.literal_eval(token))
        if "." in token:
            return ("float", token)
        if token.isdigit():
            return ("integer", int(token))
        if self.skips("("):
            return ("call", token, self.items(")"))
        if self.skips("["):
            return ("element", token, self.items("]")[0])
        return ("name", token)


def read(text):
    """The list of the expressions with commas between."""
    return Reader(text).items("")


def quoted(text):
    return '"' + "".join(c if " " <= c <= "~" and c not in '"\\' else f"\\{ord(c):03o}"
                         for c in text) + '"'


def written(items, write):
    return ", ".join(map(write, items))


def for_velmor(node):
    kind = node[0]
    if kind in BINARY:
        return f"({for_velmor(node[1])}) {kind} ({for_velmor(node[2])})"
    if kind == "procedure":
        return f"({', '.join(node[1])}) -> {for_velmor(node[2])}"
    if kind == "list":
        return f"[{written(node[1], for_velmor)}]"
    if kind == "string":
        return quoted(node[1])
    if kind == "call":
        return f"{node[1]}({written(node[2], for_velmor)})"
    if kind == "element":
        return f"{node[1]}[{for_velmor(node[2])}]"
    return str(node[1])


class GapWriter:
    """`rows` are those of the module: signature and result tell what is what."""

    def __init__(self, rows):
        self.signatures = {row[0]: row[1] for row in rows}
        self.sequences = {row[0] for row in rows if row[5].startswith("a sequence")}

    def gives_sequence(self, node):
        return node[0] == "call" and node[1] in self.sequences

    def write(self, node, names=()):
        write = lambda part: self.write(part, names)
        kind = node[0]
        if kind == "string":
            return quoted(node[1])
        if kind == "list" and len(node[1]) == 1 and self.gives_sequence(node[1][0]):
            return write(node[1][0])  # a list already
        if kind == "list":
            return f"[{written(node[1], write)}]"
        if kind == "procedure":
            names = (*names, *node[1])
            return f"({{{', '.join(node[1])}}} -> {self.write(node[2], names)})"
        if kind == "=":
            return f"VString.Eq({write(node[1])}, {write(node[2])})"
        if kind == ".." and node[1][0] == node[2][0] == "integer" and node[1][1] <= node[2][1]:
            return f"[{write(node[1])} .. {write(node[2])}]"
        if kind == "..":
            return f"VString.Range({write(node[1])}, {write(node[2])})"
        if kind == "+":
            return f"({write(node[1])} + {write(node[2])})"
        if kind == "element":
            return f"{node[1]}[{write(node[2])}]"
        if kind == "call" and node[1] == "apply":
            return f"List({write(node[2][1])}, {write(node[2][0])})"
        if kind == "call":
            return f"{self.function(node[1])}({written(node[2], lambda part: self.argument(node[1], part, names))})"
        if kind == "name" and node[1] not in names:
            return {"true": "true", "false": "false", "FAIL": "fail"}.get(
                node[1], f'VString.Name("{node[1]}")')
        return str(node[1])

    def function(self, command):
        return "VString." + ("Repeat" if command == "repeat" else command)

    def argument(self, command, node, names):
        """A function where a procedure is wanted, a record for an option."""
        if node[0] == "name" and node[1] in self.signatures and "(f, " in self.signatures[command]:
            return self.function(node[1])
        if node[0] == "=" and node[1][0] == "name":
            return f"rec({node[1][1]} := {self.write(node[2], names)})"
        return self.write(node, names)
