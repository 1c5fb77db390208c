"""Who measures the chunks of a batch: this process, processes of this machine, or a cluster of Dask.

Each gives chunks back as they are done, in any order. A worker that dies costs its chunk a second try, image by image;
an image that a worker dies of twice is one that cannot be read.
"""

from __future__ import annotations

import importlib
import multiprocessing
import os
import re
from collections import deque
from multiprocessing.connection import Connection, wait
from typing import Any, Deque, Dict, Iterator, List, NamedTuple, Sequence, Tuple

from ._batch import BatchError, Image, Measured, measure_chunk
from ._routines import limits, set_limits

DIED = "the worker died"


class Chunk(NamedTuple):
    images: Tuple[Image, ...]
    tries: int = 1


def chunks_of(images: Sequence[Image], size: int) -> List[Chunk]:
    return [Chunk(tuple(images[first:first + size])) for first in range(0, len(images), size)]


def second_try(chunk: Chunk) -> List[Chunk]:
    """What is left to do of a chunk whose worker died; nothing the second time."""
    return [Chunk((image,), 2) for image in chunk.images] if chunk.tries == 1 else []


def given_up(chunk: Chunk) -> List[Measured]:
    return [Measured(image, [], DIED) for image in chunk.images]


def use_one_core() -> None:
    """Workers share the machine by images, not by rows."""
    set_limits(**limits()._replace(max_threads=1)._asdict())


def measure_here(session: bytes, chunks: Sequence[Chunk]) -> Iterator[List[Measured]]:
    use_one_core()
    for chunk in chunks:
        yield measure_chunk(session, chunk.images)


def _serve(connection: Connection, session: bytes) -> None:
    """What a process does: measures chunks until there are no more."""
    use_one_core()
    try:
        while True:
            images = connection.recv()
            connection.send(measure_chunk(session, images))
    except (EOFError, KeyboardInterrupt, BrokenPipeError):
        pass


class _Process:
    def __init__(self, session: bytes) -> None:
        # A fork would copy the library in the middle of what its threads do.
        context = multiprocessing.get_context("spawn")
        self.connection, theirs = context.Pipe()
        self.process = context.Process(target=_serve, args=(theirs, session), daemon=True)
        self.process.start()
        theirs.close()

    def end(self) -> None:
        self.connection.close()
        self.process.join(5)
        if self.process.is_alive():
            self.process.kill()
            self.process.join()


def measure_on_cores(session: bytes, chunks: Sequence[Chunk], workers: int) -> Iterator[List[Measured]]:
    waiting: Deque[Chunk] = deque(chunks)
    busy: Dict[Connection, Tuple[_Process, Chunk]] = {}
    idle: List[_Process] = []
    try:
        while waiting or busy:
            while waiting and len(busy) < workers:
                process = idle.pop() if idle else _Process(session)
                chunk = waiting.popleft()
                busy[process.connection] = process, chunk
                try:
                    process.connection.send(chunk.images)
                except OSError:
                    pass    # it has died, which the wait tells
            for connection in wait(list(busy)):
                process, chunk = busy.pop(connection)    # type: ignore[arg-type]
                try:
                    measured: List[Measured] = process.connection.recv()
                except (EOFError, OSError):
                    process.end()
                    again = second_try(chunk)
                    waiting.extendleft(reversed(again))
                    if again:
                        continue
                    measured = given_up(chunk)
                else:
                    idle.append(process)
                yield measured
    finally:
        for process in idle + [process for process, _ in busy.values()]:
            process.end()


def connect(address: str) -> Any:
    """The client of a Dask cluster."""
    if not re.fullmatch(r"(\w+://)?[^/\s]+:\d+", address):
        raise BatchError(f"{address} is no address of a scheduler, such as tcp://127.0.0.1:8786")
    try:
        distributed: Any = importlib.import_module("distributed")
    except ImportError:
        raise BatchError("--scheduler needs the package distributed of Dask (Debian: python3-distributed)") from None
    try:
        return distributed.Client(address, timeout=os.environ.get("VOSTEL_SCHEDULER_TIMEOUT", "20s"))
    except (OSError, ValueError) as problem:
        raise BatchError(f"there is no scheduler at {address}: {problem}") from None


def measure_on_cluster(session: bytes, chunks: Sequence[Chunk], client: Any) -> Iterator[List[Measured]]:
    distributed: Any = importlib.import_module("distributed")
    under_way: Dict[str, Chunk] = {}

    def submit(chunk: Chunk) -> Any:
        # Never the result of an earlier batch: files change.
        future = client.submit(measure_chunk, session, chunk.images, pure=False)
        under_way[future.key] = chunk
        return future

    done = distributed.as_completed([submit(chunk) for chunk in chunks])
    for future in done:
        chunk = under_way.pop(future.key)
        try:
            measured: List[Measured] = future.result()
        except distributed.KilledWorker:    # after the tries of the cluster itself
            again = second_try(chunk)
            for single in again:
                done.add(submit(single))
            if again:
                continue
            measured = given_up(chunk)
        except Exception as problem:
            raise BatchError(f"a worker of the cluster failed: {problem!r}") from problem
        yield measured
