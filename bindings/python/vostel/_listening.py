"""Listeners: one function of the library's interface serves all of them."""

from __future__ import annotations

import threading
import weakref
from typing import TYPE_CHECKING, Any, Callable, Dict, NamedTuple, NoReturn, Optional

from . import _declarations as c
from ._library import library
from ._object import Object
from ._records import Events

if TYPE_CHECKING:
    from ._canvas import Canvas


class Event(NamedTuple):
    """What a listener hears: what happened, where, and of events of objects which one."""

    type: Events
    canvas: Canvas
    object: Optional[Object]


Callback = Callable[[Event], Any]

# Canvases by their numbers. They hold their callbacks themselves, so that a canvas that only its own callbacks
# know can be collected with them.
canvases: weakref.WeakValueDictionary[int, Canvas] = weakref.WeakValueDictionary()


def _on_event(event: Any, key: Optional[int]) -> None:
    told = event.contents
    canvas = canvases.get(told.canvas)
    callback = canvas._callbacks.get(key or 0) if canvas is not None else None
    if canvas is not None and callback is not None:
        callback(Event(Events(told.type), canvas, Object(canvas, told.object) if told.object else None))


# Lives as long as the library: a listener may end itself while this runs.
trampoline = c.Listener(_on_event)

_lock = threading.Lock()
_last_key = 0


def new_key() -> int:
    global _last_key
    with _lock:
        _last_key += 1
        return _last_key


class Subscription:
    """A listener of a canvas, until `close`. As a context manager it ends with the block."""

    def __init__(self, canvas: Canvas, key: int, token: int) -> None:
        self._canvas = weakref.ref(canvas)
        self._key = key
        self._token = token

    def close(self) -> None:
        """The callback is not called again. Also from the callback itself; a second time does nothing."""
        canvas = self._canvas()
        if canvas is None or canvas._callbacks.pop(self._key, None) is None or canvas.closed:
            return
        with canvas._hold():
            library.vostel_unlisten(self._token)

    def __enter__(self) -> Subscription:
        return self

    def __exit__(self, *_: Any) -> None:
        self.close()

    def __repr__(self) -> str:
        canvas = self._canvas()
        listens = canvas is not None and not canvas.closed and self._key in canvas._callbacks
        return f"<vostel.Subscription {'to ' + repr(canvas) if listens else 'that has ended'}>"

    def __reduce__(self) -> NoReturn:
        raise TypeError("a subscription cannot be pickled")


Callbacks = Dict[int, Callback]
