"""The loaded library, and its failures as exceptions."""

from __future__ import annotations

import ctypes
import os
import sys
from pathlib import Path
from typing import Any, Callable, Iterator

from . import _declarations as c


class Error(Exception):
    """What the library refused, or could not do.

    `status` is the number of the C interface, such as -2, and `status_name` its name, `"VOSTEL_NOT_FOUND"`; the
    text says what was wrong and with which argument. A call that fails has changed nothing.
    """

    def __init__(self, status: int, message: str) -> None:
        super().__init__(status, message)
        self.status = status
        self.message = message

    @property
    def status_name(self) -> str:
        """Such as "VOSTEL_NOT_FOUND"."""
        name: bytes = library.vostel_status_name(self.status)
        return name.decode()

    def __str__(self) -> str:
        return f"{self.message or 'failed'} ({self.status_name})"


class ArgumentError(Error, ValueError):
    """An argument that cannot be what was meant: VOSTEL_INVALID_ARGUMENT."""

    def __init__(self, message: str) -> None:
        super().__init__(c.INVALID_ARGUMENT, message)

    def __reduce__(self) -> Any:
        return type(self), (self.message,)


class ArgumentTypeError(ArgumentError, TypeError):
    """An argument of a type that is not taken, such as an array of complex numbers."""


def _raise_failure(status: int, function: Any, arguments: Any) -> int:
    if status != c.OK:
        message: str = library.vostel_last_message().decode("utf-8", "replace")
        raise ArgumentError(message) if status == c.INVALID_ARGUMENT else Error(status, message)
    return status


def _places() -> Iterator[str]:
    """Where the library may be, best first."""
    if os.environ.get("VOSTEL_LIBRARY"):
        yield os.environ["VOSTEL_LIBRARY"]
        return
    name = "VostelObj.dll" if sys.platform == "win32" else "libVostelObj.so.1"
    bundled = Path(__file__).parent / "lib" / name
    if bundled.exists():
        yield str(bundled)
    yield name    # where the system looks
    for build in ("release", "demo"):    # in a checkout
        built = Path(__file__).parents[3] / "build" / build / ("bin" if sys.platform == "win32" else "src") / name
        if built.exists():
            yield str(built)


def _load() -> Any:
    problems = []
    for place in _places():
        try:
            found = ctypes.CDLL(place)
            functions = {name: getattr(found, name) for name in (*c.TEXTS, *c.FUNCTIONS)}
            break
        except (OSError, AttributeError) as problem:    # an older library lacks names
            problems.append(f"{place}: {problem}")
    else:
        raise ImportError("cannot load the VostelObj library; the variable VOSTEL_LIBRARY may name its file\n" +
                          "\n".join(problems))
    for name, function in functions.items():
        if name in c.TEXTS:
            function.argtypes, function.restype = c.TEXTS[name], ctypes.c_char_p
        else:
            function.argtypes, function.restype = c.FUNCTIONS[name], ctypes.c_int32
            function.errcheck = _raise_failure
    return found


# Calls of it release the interpreter's lock, and those that return a status raise Error by themselves.
library = _load()
version: str = library.vostel_version().decode()


def encoded(text: str, name: str) -> bytes:
    """Text as the library takes it; it ends at the first zero."""
    if not isinstance(text, str):
        raise ArgumentTypeError(f"{name} is {type(text).__name__}, not text")
    try:
        data = text.encode("utf-8")
    except UnicodeEncodeError:
        raise ArgumentError(f"{name} is not Unicode: {text!r}") from None
    if b"\0" in data:
        raise ArgumentError(f"{name} has a zero in it: {text!r}")
    return data


def encoded_path(path: Any) -> bytes:
    try:
        text = os.fspath(path)
    except TypeError:
        raise ArgumentTypeError(f"path is {type(path).__name__}, not a path") from None
    if isinstance(text, bytes):
        text = os.fsdecode(text)
    if sys.platform != "win32":
        data = os.fsencode(text)    # names that are not UTF-8 stay as they are
        if b"\0" in data:
            raise ArgumentError(f"path has a zero in it: {text!r}")
        return data
    return encoded(text, "path")


def text_of(call: Callable[..., Any], *arguments: Any) -> str:
    """Text that comes out into a buffer."""
    length = ctypes.c_size_t()
    call(*arguments, None, 0, length)
    buffer = ctypes.create_string_buffer(length.value + 1)
    call(*arguments, buffer, len(buffer), None)
    return buffer.value.decode("utf-8")


def last_note() -> str:
    """What a success had to say, such as what a format could not hold."""
    note: str = library.vostel_last_message().decode("utf-8", "replace")
    return note
