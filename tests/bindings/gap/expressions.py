"""Velmor's expressions, as far as the examples of the commands go: read, and written for velmor or GAP.

A node is a tuple: its kind, and what it is made of.
"""
import ast, re

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


VELMOR = {"=": "({}) = ({})", "..": "({}) .. ({})", "+": "({}) + ({})", "procedure": "({}) -> {}"}
GAP = {"=": "VString.Eq({}, {})", "..": "VString.Range({}, {})", "+": "({} + {})",
       "procedure": "({{{}}} -> {})"}


class Writer:
    """Of velmor's language; `signatures` and `sequences` are for the other one."""
    forms = VELMOR
    signatures = {}
    sequences = set()

    def gives_sequence(self, node):
        return node[0] == "call" and node[1] in self.sequences

    def write(self, node, names=()):
        kind, first = node[:2]
        if kind == "string":
            return quoted(first)
        if kind == "list" and len(first) == 1 and self.gives_sequence(first[0]):
            return self.write(first[0], names)  # a list already
        if kind == "list":
            return f"[{', '.join(self.write(part, names) for part in first)}]"
        if kind == "procedure":
            body = self.write(node[2], (*names, *first))
            return self.forms[kind].format(", ".join(first), body)
        if kind in self.forms:
            return self.forms[kind].format(self.write(first, names), self.write(node[2], names))
        if kind == "element":
            return f"{first}[{self.write(node[2], names)}]"
        if kind == "call":
            arguments = [self.argument(first, place, part, names) for place, part in enumerate(node[2], 1)]
            return self.function(first, arguments)
        return str(first) if kind != "name" or first in names else self.name(first)

    def function(self, command, arguments):
        return f"{command}({', '.join(arguments)})"

    def name(self, text):
        return text

    def argument(self, command, place, node, names):
        return self.write(node, names)


class GapWriter(Writer):
    """`rows` are those of the module: signature and result tell what is what."""
    forms = GAP

    def __init__(self, rows):
        self.signatures = {row[0]: row[1] for row in rows}
        self.sequences = {row[0] for row in rows if row[5].startswith("a sequence")}

    def function(self, command, arguments):
        if command == "apply":
            return f"List({arguments[1]}, {arguments[0]})"
        return super().function("VString." + ("Repeat" if command == "repeat" else command), arguments)

    def name(self, text):
        value = {"true": "true", "false": "false", "FAIL": "fail"}
        return value.get(text, f'VString.Name("{text}")')

    def range_place(self, command):
        """Where it takes a range, and with that one of GAP's; 0 for nowhere."""
        before, dots, _ = self.signatures.get(command, "").partition(" .. ")
        return before[before.rfind("("):].count(",") + 1 if dots else 0

    def argument(self, command, place, node, names):
        """A function where a procedure is wanted, GAP's range for a range, a record for an option."""
        takes_procedure = place == 1 and "(f, " in self.signatures.get(command, "")
        if takes_procedure and node[0] == "name" and node[1] in self.signatures:
            return "VString." + node[1]
        if node[0] == "=" and node[1][0] == "name":
            return f"rec({node[1][1]} := {self.write(node[2], names)})"
        if (node[0] == ".." and place == self.range_place(command)
                and node[1][0] == node[2][0] == "integer" and node[1][1] <= node[2][1]):
            return f"[{node[1][1]} .. {node[2][1]}]"
        return self.write(node, names)
