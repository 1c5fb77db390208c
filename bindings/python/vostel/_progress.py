"""How far a batch is."""

from __future__ import annotations

import sys
import time
from typing import Optional, TextIO


def clock_of(seconds: float) -> str:
    """1:02:03 or 2:03."""
    whole = int(seconds + 0.5)
    hours, minutes = divmod(whole // 60, 60)
    return f"{hours}:{minutes:02}:{whole % 60:02}" if hours else f"{minutes}:{whole % 60:02}"


class Progress:
    """A bar with rate and remaining time: in place on a terminal, else a line now and then."""

    WIDTH = 30

    def __init__(self, total: int, file: Optional[TextIO] = None) -> None:
        self.total, self.done = total, 0
        self._file = file or sys.stderr
        self._in_place = self._file.isatty()
        self._begin = self._shown = time.monotonic()

    def line(self, seconds: float) -> str:
        filled = self.WIDTH * self.done // self.total if self.total else self.WIDTH
        rate = self.done / seconds if seconds > 0 else 0.0
        left = clock_of((self.total - self.done) / rate) if rate > 0 else "?"
        bar = "#" * filled + "." * (self.WIDTH - filled)
        return f"[{bar}] {self.done}/{self.total}  {rate:.1f} images/s  {left} left"

    def advance(self, images: int) -> None:
        self.done += images
        now = time.monotonic()
        if now - self._shown >= (0.1 if self._in_place else 10.0):
            self._show(now, "\r" if self._in_place else "\n")

    def end(self) -> None:
        """The last line stays."""
        self._show(time.monotonic(), "\n")

    def _show(self, now: float, end: str) -> None:
        self._shown = now
        clear = "\x1b[K" if self._in_place else ""
        self._file.write(self.line(now - self._begin) + clear + end)
        self._file.flush()
