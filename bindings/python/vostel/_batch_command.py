"""python -m vostel batch."""

from __future__ import annotations

import argparse
import os
import sys
from pathlib import Path
from typing import Any, Dict, Iterator, List, Sequence

from ._batch import BatchError, Image, Measured, Table
from ._progress import Progress
from ._workers import chunks_of, connect, measure_here, measure_on_cluster, measure_on_cores

WRONG_USE = 2
INTERRUPTED = 130


def count(text: str) -> int:
    number = int(text)
    if number < 1:
        raise argparse.ArgumentTypeError(f"{number} is not 1 or more")
    return number


def add_parser(commands: Any) -> None:
    parser = commands.add_parser(
        "batch", help="put the objects of a session on many images and write their measures into one table",
        description="Puts the objects of a session on each image, measures them and writes one CSV table: the image as "
        "it was named, then the columns of vostel_table, with objects counted from 1. Images come in the order given, "
        "each once. Ends with 1 if an image cannot be read; these are listed at the end.")
    parser.add_argument("session", metavar="SESSION")
    parser.add_argument("images", metavar="IMAGE", nargs="+")
    parser.add_argument("--out", metavar="TABLE", required=True, help="the table, which starts anew without --resume")
    parser.add_argument("--resume", action="store_true",
                        help="go on where an earlier run has ended; images that could not be read are tried again")
    where = parser.add_mutually_exclusive_group()
    where.add_argument("--workers", metavar="N", type=count, default=1, help="processes on this machine, 1 at first")
    where.add_argument("--scheduler", metavar="ADDRESS", help="of a Dask cluster, whose workers see the same files")
    parser.add_argument("--chunk", metavar="N", type=count,
                        help="images that a worker gets at once: 4 at first, 16 on a cluster")
    parser.set_defaults(run=run)


def in_order(images: Sequence[Image], results: Iterator[List[Measured]]) -> Iterator[Measured]:
    """What comes in any order, in that of the images."""
    early: Dict[str, Measured] = {}
    expected = iter(images)
    waited_for = next(expected, None)
    for measured in results:
        early.update((each.image.name, each) for each in measured)
        while waited_for is not None and waited_for.name in early:
            yield early.pop(waited_for.name)
            waited_for = next(expected, None)


def begin(arguments: argparse.Namespace, images: Sequence[Image]) -> Table:
    try:
        session = Path(arguments.session).read_bytes()
    except OSError as problem:
        raise BatchError(f"{arguments.session} cannot be read: {problem.strerror}") from None
    out = Path(arguments.out)
    inputs = [arguments.session, *(image.path for image in images)]
    if out.exists() and any(os.path.exists(path) and os.path.samefile(out, path) for path in inputs):
        raise BatchError(f"{out} is the session or one of the images")
    arguments.session = session
    return Table(out, session, arguments.resume)


def counted(results: Iterator[List[Measured]], progress: Progress) -> Iterator[List[Measured]]:
    for measured in results:
        progress.advance(len(measured))
        yield measured


def run(arguments: argparse.Namespace) -> int:
    # Each once, at its first place.
    images = [Image(name, os.path.abspath(name)) for name in dict.fromkeys(arguments.images)]
    try:
        client = connect(arguments.scheduler) if arguments.scheduler else None
        try:
            return measure_all(arguments, images, client)
        finally:
            if client:
                client.close()
    except BatchError as problem:
        print(f"vostel: {problem}", file=sys.stderr)
        return WRONG_USE


def measure_all(arguments: argparse.Namespace, images: Sequence[Image], client: Any) -> int:
    table = begin(arguments, images)
    left = [image for image in images if image.name not in table.done]
    if len(left) < len(images):
        print(f"{len(images) - len(left)} of {len(images)} images are in {arguments.out}", file=sys.stderr)
    chunks = chunks_of(left, arguments.chunk or (16 if client else 4))
    if client:
        results = measure_on_cluster(arguments.session, chunks, client)
    elif arguments.workers > 1:
        results = measure_on_cores(arguments.session, chunks, arguments.workers)
    else:
        results = measure_here(arguments.session, chunks)
    progress, bad = Progress(len(left)), []
    try:
        for measured in in_order(left, counted(results, progress)):
            if measured.problem is None:
                table.add(measured)
            else:
                bad.append(measured)
    except KeyboardInterrupt:
        progress.end()
        print("vostel: interrupted; --resume goes on", file=sys.stderr)
        return INTERRUPTED
    except OSError as problem:
        raise BatchError(f"{arguments.out} cannot be written: {problem.strerror}") from None
    progress.end()
    table.close(images)
    if bad:
        print(f"{len(bad)} of {len(images)} images could not be read:", file=sys.stderr)
        for measured in bad:
            print(f"  {measured.image.name}: {measured.problem}", file=sys.stderr)
    return 1 if bad else 0
