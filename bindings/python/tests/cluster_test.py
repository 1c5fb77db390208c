#!/usr/bin/env python3
"""A batch on a Dask cluster: a scheduler and two workers on the loopback, one of which is killed in the middle."""

import importlib.util
import json
import os
import signal
import subprocess
import sys
import tempfile
import time
import unittest

from batch_case import BatchCase


class Cluster(BatchCase):
    COUNT, SIZE = 300, (500, 400)

    def start(self, *arguments, **variables):
        with open(os.path.join(self.work, "log.txt"), "ab") as log:
            process = subprocess.Popen([sys.executable, "-m", *arguments], stdout=log, stderr=log, cwd=self.work,
                                       env={**os.environ, **variables}, start_new_session=True)
        self.addCleanup(self.end, process)
        return process

    def end(self, process):
        if process.poll() is None:
            process.send_signal(signal.SIGTERM)
            try:
                process.wait(10)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()

    def cluster(self, workers, **variables):
        """Address of a scheduler, and its workers once it knows them."""
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.work = folder.name
        told = os.path.join(self.work, "scheduler.json")
        variables = {"DASK_TEMPORARY_DIRECTORY": self.work, **variables}
        self.start("distributed.cli.dask_scheduler", "--host", "127.0.0.1", "--port", "0", "--no-dashboard",
                   "--scheduler-file", told, **variables)
        self.wait_for(lambda: os.path.exists(told) and os.path.getsize(told))
        with open(told) as file:
            address = json.load(file)["address"]
        made = [self.start("distributed.cli.dask_worker", address, "--host", "127.0.0.1", "--nthreads", "1",
                           "--no-nanny", "--no-dashboard", **variables) for _ in range(workers)]
        from distributed import Client
        with Client(address, timeout="60s", set_as_default=False) as client:
            client.wait_for_workers(workers, timeout=60)
        return address, made

    def wait_for(self, what):
        begin = time.monotonic()
        while not what():
            self.assertLess(time.monotonic() - begin, 60, "the scheduler does not start")
            time.sleep(0.02)

    def batch_on(self, address, workers):
        code, printed = self.killed_in_the_middle(
            ("part.vostel.json", *self.images, "none.png", "--out", "table.csv", "--scheduler", address, "--chunk", 8),
            lambda _: [workers[0].pid])
        self.assertEqual(code, 1, printed)
        self.assertIn("1 of 301 images could not be read:\n  none.png: ", printed)
        self.assertEqual(self.table(), self.expected())

    def test_a_worker_that_is_killed_costs_nothing(self):
        self.batch_on(*self.cluster(2))

    def test_a_chunk_that_the_cluster_gives_up_is_tried_again(self):
        # Dask tries a task of a dead worker three times; here not once.
        self.batch_on(*self.cluster(2, DASK_DISTRIBUTED__SCHEDULER__ALLOWED_FAILURES="0"))

    def test_what_is_missing_is_measured_on_the_cluster(self):
        address, _ = self.cluster(1)
        expected = self.expected()
        (self.folder / "table.csv").write_bytes(expected[:len(expected) // 3])
        self.batch("part.vostel.json", *self.images, "--out", "table.csv", "--scheduler", address, "--resume")
        self.assertEqual(self.table(), expected)

    def test_an_address_without_a_scheduler_leaves_the_table(self):
        (self.folder / "table.csv").write_bytes(b"kept")
        for address, words in (("127.0.0.1:1", "there is no scheduler at"), ("nonsense", "is no address"),
                               ("tcp://", "is no address")):
            printed = self.batch("part.vostel.json", self.images[0], "--out", "table.csv", "--scheduler", address,
                                 code=2, env={**os.environ, "VOSTEL_SCHEDULER_TIMEOUT": "1s"})
            self.assertIn(words, printed)
            self.assertNotIn("Traceback", printed)
        self.assertEqual(self.table(), b"kept")


if __name__ == "__main__":
    if importlib.util.find_spec("distributed") is None:
        print("distributed is not installed")
        sys.exit(77)
    unittest.main()
