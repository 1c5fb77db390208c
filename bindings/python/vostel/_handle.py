"""The number of a canvas, the lock that calls on it take, and its end."""

from __future__ import annotations

import contextlib
import ctypes
import threading
import weakref
from collections import deque
from typing import Any, Deque, Iterator, NoReturn

from . import _declarations as c
from ._library import Error, library, text_of


class Guard:
    """Held for the length of a call, since a canvas is used by one thread at a time. Linked canvases share one."""

    def __init__(self) -> None:
        self.lock = threading.RLock()    # listeners call the canvas they hear of
        self.handles: weakref.WeakSet[Handle] = weakref.WeakSet()


class Handle:
    def __init__(self, number: int, owned: bool) -> None:
        self.number = number
        self.owned = owned
        self.closed = False
        self.guard = Guard()
        self.guard.handles.add(self)

    def join(self, guard: Guard) -> None:
        self.guard = guard
        guard.handles.add(self)

    @contextlib.contextmanager
    def hold(self) -> Iterator[int]:
        while True:
            guard = self.guard
            guard.lock.acquire()
            if guard is self.guard:    # not linked meanwhile
                break
            guard.lock.release()
        try:
            if self.closed:
                raise Error(c.NOT_FOUND, f"canvas {self.number} is closed")
            yield self.number
        finally:
            guard.lock.release()


# Canvases that were dropped while a linked one was in use.
_late: Deque[Handle] = deque()


def _destroy(handle: Handle) -> None:
    with contextlib.suppress(Error):    # a host may have destroyed it
        library.vostel_canvas_destroy(handle.number)


def _drop(handle: Handle) -> None:
    """Destroys a canvas that nobody knows any more. Never waits, since the collector may run anywhere."""
    if handle.closed or not handle.owned:
        return
    handle.closed = True
    guard = handle.guard
    if not guard.lock.acquire(blocking=False):
        _late.append(handle)
        return
    try:
        _destroy(handle)
    finally:
        guard.lock.release()


def destroy_late() -> None:
    while _late:
        with contextlib.suppress(IndexError):
            handle = _late.popleft()
            with handle.guard.lock:
                _destroy(handle)


class CanvasHandle:
    """What every part of a canvas stands on."""

    def __init__(self, number: int, owned: bool) -> None:
        self._handle = Handle(number, owned)
        weakref.finalize(self, _drop, self._handle).atexit = False

    @property
    def id(self) -> int:
        """The number of the canvas, which is never used twice."""
        return self._handle.number

    @property
    def closed(self) -> bool:
        """Whether `close` was called."""
        return self._handle.closed

    def __reduce__(self) -> NoReturn:
        raise TypeError("a canvas lives in the library and cannot be pickled; save a session instead")

    def _hold(self) -> contextlib.AbstractContextManager[int]:
        return self._handle.hold()

    def _call(self, function: Any, *arguments: Any) -> None:
        with self._handle.hold() as number:
            function(number, *arguments)

    def _text(self, function: Any, *arguments: Any) -> str:
        with self._handle.hold() as number:
            return text_of(function, number, *arguments)

    def _link(self, other: CanvasHandle) -> None:
        mine, theirs = self._handle, other._handle
        if mine is theirs:
            with mine.hold() as number:
                library.vostel_view_link(number, number)
                mine.guard.handles.discard(mine)
                mine.join(Guard())
            return
        first, second = sorted((mine, theirs), key=lambda handle: handle.number)
        with first.hold(), second.hold():
            library.vostel_view_link(mine.number, theirs.number)
            for handle in list(mine.guard.handles):
                handle.join(theirs.guard)

    def _close(self) -> None:
        handle = self._handle
        if handle.closed:
            return
        with handle.hold() as number:
            handle.closed = True
            if handle.owned:
                with contextlib.suppress(Error):
                    library.vostel_canvas_destroy(number)
        destroy_late()


def create(width: int, height: int) -> int:
    destroy_late()
    number = ctypes.c_int32()
    library.vostel_canvas_create(width, height, number)
    return number.value
