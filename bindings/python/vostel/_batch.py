"""The table of a batch: what a worker measures, how rows get into the file, and what of an earlier run stands there."""

from __future__ import annotations

import contextlib
import csv
import io
import os
import tempfile
from pathlib import Path
from typing import Dict, Iterable, Iterator, List, NamedTuple, Optional, Sequence, Tuple

import numpy as np

from ._canvas import Canvas
from ._library import Error, library, text_of

Row = List[str]
# Names that are no UTF-8 come and go as they are.
TEXT = {"encoding": "utf-8", "errors": "surrogateescape"}


class Image(NamedTuple):
    """An image of a batch: as it was named, which is its key, and where a worker in any folder finds it."""

    name: str
    path: str


class Measured(NamedTuple):
    """What a worker has to say of an image: its rows, or why there are none."""

    image: Image
    rows: List[Row]
    problem: Optional[str] = None


class BatchError(Exception):
    """A batch that cannot begin."""


def rows_of(canvas: Canvas) -> Tuple[Row, List[Row]]:
    """Header and rows of the table. Objects are numbered from 1, since their identities differ from run to run."""
    with canvas._hold() as number:
        text = text_of(library.vostel_table, number, b"csv")
    header, *rows = csv.reader(io.StringIO(text, newline=""))
    return ["image", *header], [[str(index), *row[1:]] for index, row in enumerate(rows, 1)]


@contextlib.contextmanager
def session_file(session: bytes) -> Iterator[str]:
    """A session as a file, on a machine that may not have it."""
    with tempfile.TemporaryDirectory() as folder:
        path = os.path.join(folder, "batch.vostel.json")
        Path(path).write_bytes(session)
        yield path


def measure_chunk(session: bytes, images: Sequence[Image]) -> List[Measured]:
    """Puts the objects of a session on each image and measures them. Runs anywhere: paths come in, rows leave."""
    measured = []
    with session_file(session) as path, Canvas(16, 16) as canvas:
        canvas.set_history_limit(0)
        for image in images:
            try:
                canvas.open(image.path)
                canvas.session_open(path, on_image=True)
                _, rows = rows_of(canvas)
                measured.append(Measured(image, [[image.name, *row] for row in rows]))
            except Error as problem:
                measured.append(Measured(image, [], str(problem)))
    return measured


def form_of(session: bytes) -> Tuple[Row, List[Row]]:
    """Header of the table, and the cells of each row that are the same for all images."""
    with session_file(session) as path, Canvas(16, 16) as canvas:
        canvas.show(np.zeros((16, 16), np.uint8))
        try:
            canvas.session_open(path, on_image=True)
        except Error as problem:
            raise BatchError(f"the session cannot be opened: {problem}") from None
        header, rows = rows_of(canvas)
    if not rows:
        raise BatchError("the session has no objects")
    return header, [row[:header.index("pixels") - 1] for row in rows]


def text_of_rows(rows: Iterable[Row]) -> bytes:
    text = io.StringIO(newline="")
    csv.writer(text).writerows(rows)
    return text.getvalue().encode(**TEXT)


class Table:
    """The file of a batch. Images come whole: what is torn when a run is killed is the last one at most."""

    def __init__(self, path: Path, session: bytes, resume: bool) -> None:
        self.path = path
        self.header, self._fixed = form_of(session)
        self.done: Dict[str, List[Row]] = {}
        try:
            if resume and path.exists():
                self._read()
        except OSError as problem:
            raise BatchError(f"{path} cannot be read: {problem.strerror}") from None
        self._replace(self.done)
        self._file = open(path, "ab")

    def _read(self) -> None:
        text = self.path.read_bytes().decode(**TEXT)
        if text and not text.endswith("\r\n"):
            text = text[:text.rfind("\r\n") + 2] if "\r\n" in text else ""
        try:
            rows = list(csv.reader(io.StringIO(text, newline="")))
        except csv.Error:
            rows = [[]]
        if rows and rows[0] != self.header:
            raise BatchError(f"{self.path} is no table of a batch, so it is not resumed")
        groups: Dict[str, List[Row]] = {}
        for row in rows[1:]:
            if row:
                groups.setdefault(row[0], []).append(row)
        last = rows[-1][0] if len(rows) > 1 and rows[-1] else None
        for name, group in groups.items():
            whole = all(len(row) == len(self.header) for row in group)
            if whole and [row[1:1 + len(self._fixed[0])] for row in group] == self._fixed:
                self.done[name] = group
            elif name != last:
                raise BatchError(f"{self.path} has rows of another session, so it is not resumed")

    def _replace(self, groups: Dict[str, List[Row]]) -> None:
        """Writes the table whole; a run that is killed here leaves the one that was there."""
        beside = self.path.with_name(self.path.name + ".part")
        try:
            with open(beside, "wb") as file:
                file.write(text_of_rows([self.header]))
                for rows in groups.values():
                    file.write(text_of_rows(rows))
            os.replace(beside, self.path)
        except OSError as problem:
            raise BatchError(f"{self.path} cannot be written: {problem.strerror}") from None

    def add(self, measured: Measured) -> None:
        self.done[measured.image.name] = measured.rows
        self._file.write(text_of_rows(measured.rows))
        self._file.flush()

    def close(self, order: Sequence[Image] = ()) -> None:
        """Ends the table. With an order the rows of those images come in it, behind those of others."""
        self._file.close()
        if not order:
            return
        named = {image.name for image in order}
        sorted_names = [name for name in self.done if name not in named]
        sorted_names += [image.name for image in order if image.name in self.done]
        if sorted_names != list(self.done):
            self._replace({name: self.done[name] for name in sorted_names})
