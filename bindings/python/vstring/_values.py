"""The kinds of values that Python has no type for."""

from __future__ import annotations

from typing import Any


class Error(ValueError):
    """A command has refused its arguments. `command` is its name."""

    def __init__(self, message: object, command: str | None = None) -> None:
        super().__init__(message)
        self.command = command


class Constant:
    """A value of its own, false as a condition."""

    def __init__(self, name: str) -> None:
        self._name = name

    def __repr__(self) -> str:
        return self._name

    def __bool__(self) -> bool:
        return False

    def __reduce__(self) -> str:
        return self._name


class Name:
    """A name, as commands take for an option or for a variable.

    `text` is as it was given, str or bytes. `value` is what a command has assigned, None before.
    """

    __slots__ = ("_text", "_key", "value")

    def __init__(self, text: str | bytes) -> None:
        if not isinstance(text, (str, bytes)):
            raise TypeError(f"a name is str or bytes, not {type(text).__name__}")
        key = text.encode("utf-8", "surrogateescape") if isinstance(text, str) else bytes(text)
        if b"\0" in key:
            raise ValueError("a name cannot hold a zero byte")
        self._text = text
        self._key = key
        self.value: Any = None

    @property
    def text(self) -> str | bytes:
        return self._text

    def __repr__(self) -> str:
        return f"Name({self._text!r})"

    def __eq__(self, other: object) -> bool:
        if not isinstance(other, Name):
            return NotImplemented
        return self._key == other._key

    def __hash__(self) -> int:
        return hash((Name, self._key))

    def __reduce__(self) -> tuple[Any, ...]:
        return type(self), (self._text,), (None, {"value": self.value})


class _Pair:
    """Two sides, which do not change."""

    __slots__: tuple[str, ...] = ()

    def __init__(self, *sides: Any) -> None:
        for slot, side in zip(self.__slots__, sides):
            object.__setattr__(self, slot, side)

    def _sides(self) -> tuple[Any, ...]:
        return tuple(getattr(self, slot) for slot in self.__slots__)

    def __setattr__(self, attribute: str, value: object) -> None:
        raise AttributeError(f"{type(self).__name__} does not change")

    def __delattr__(self, attribute: str) -> None:
        raise AttributeError(f"{type(self).__name__} does not change")

    def __reduce__(self) -> tuple[Any, ...]:
        return type(self), self._sides()

    def __repr__(self) -> str:
        return "{}({!r}, {!r})".format(type(self).__name__, *self._sides())

    def __eq__(self, other: object) -> bool:
        if not isinstance(other, _Pair) or type(self) is not type(other):
            return NotImplemented
        return self._sides() == other._sides()

    def __hash__(self) -> int:
        return hash((type(self), self._sides()))


class Range(_Pair):
    """low .. high: the positions from one to the other; negative ones count from the end."""

    __slots__ = __match_args__ = ("low", "high")
    low: Any
    high: Any

    def __init__(self, low: Any, high: Any) -> None:
        super().__init__(low, high)


class Eq(_Pair):
    """The equation left = right, as commands take for options, weights and replacements."""

    __slots__ = __match_args__ = ("left", "right")
    left: Any
    right: Any

    def __init__(self, left: Any, right: Any) -> None:
        super().__init__(left, right)


FAIL = Constant("FAIL")
_ = Constant("_")

for _type in Error, Constant, Name, Range, Eq:
    _type.__module__ = "vstring"
