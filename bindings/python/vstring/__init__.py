"""The commands of vstring, a string library for computer-algebra systems.

Each command is a function: help(vstring.take). Texts are str, which go in and come out as UTF-8, or
bytes, which come out when any went in; positions count bytes, from 1. Lists and tuples are lists, a
callable is a procedure, keyword arguments are equations name = value behind the others.
"""

import builtins as _builtins
import os as _os

from vstring import _vstring
from vstring._values import FAIL, Eq, Error, Name, Range, _
from vstring._vstring import __version__

_os.register_at_fork(
    before=_vstring._lock,
    after_in_parent=_vstring._unlock,
    after_in_child=_vstring._unlock,
)

__all__ = ["FAIL", "Eq", "Error", "Name", "Range"]
__all__ += [
    _name for _name in vars(_vstring) if not (_name.startswith("_") or hasattr(_builtins, _name))
]

from vstring._vstring import *  # noqa: E402, F403 (last, as some names are those of builtins)
