#!/usr/bin/env python3
"""Threads: calls release the interpreter's lock, and those on one canvas take turns."""

import gc
import threading
import time
import unittest

import numpy as np

import vostel
from canvas_case import CanvasCase, ramp


def run_all(*works):
    """Runs each on a thread of its own; returns what they raised."""
    raised = []

    def guarded(work):
        try:
            work()
        except BaseException as problem:
            raised.append(problem)

    threads = [threading.Thread(target=guarded, args=(work,)) for work in works]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join(120)
        if thread.is_alive():
            raised.append(RuntimeError("a thread hangs"))
    return raised


class Threads(CanvasCase):
    def test_threads_on_one_canvas_take_turns(self):
        def work(name):
            for _ in range(60):
                region = self.canvas.add_polygon([(1, 1), (30, 1), (5, 30)], name=name, label=3)
                region.points += 1
                self.canvas.render()
                self.assertEqual((region.name, region.pixels > 0), (name, True))
                region.remove()

        self.assertEqual(run_all(*(lambda name=name: work(name) for name in "abcd")), [])
        self.assertEqual(self.canvas.objects, ())

    def test_threads_on_linked_canvases_take_turns_while_others_link(self):
        canvases = [self.canvas] + [vostel.Canvas(80, 60) for _ in range(3)]
        for canvas in canvases[1:]:
            canvas.show(ramp())

        def zoom(canvas):
            for _ in range(200):
                canvas.zoom(1.01, 10, 10)
                canvas.fit()

        def link():
            for turn in range(60):
                canvases[turn % 4].link(canvases[(turn + 1) % 4])
                canvases[(turn + 2) % 4].link(None)

        self.assertEqual(run_all(link, link, *(lambda canvas=canvas: zoom(canvas) for canvas in canvases)), [])

    def test_a_canvas_is_closed_while_others_use_it(self):
        for _ in range(20):
            canvas = vostel.Canvas(80, 60)
            canvas.show(ramp())

            def work():
                with self.assertRaises(vostel.Error) as failure:
                    while True:
                        canvas.add_rectangle(1, 1, 9, 9, name="a").measure()
                        canvas.plane
                self.assertIn("closed", str(failure.exception))

            self.assertEqual(run_all(work, work, lambda: (time.sleep(0.01), canvas.close())), [])

    def test_canvases_are_collected_while_others_render(self):
        def churn():
            for _ in range(60):
                canvas = vostel.Canvas(20, 20)
                canvas.show(ramp())
                canvas.link(self.canvas)
                canvas.listen(lambda event, keeps=canvas: None)
                del canvas
                gc.collect(1)

        def render():
            for _ in range(300):
                self.canvas.render()

        self.assertEqual(run_all(churn, churn, render), [])
        gc.collect()
        vostel.Canvas(9, 9)

    def test_others_run_while_a_routine_works(self):
        image = np.ones((1500, 1500), np.float32)
        done, ticks = threading.Event(), []

        def tick():
            while not done.is_set():
                ticks.append(time.perf_counter())
                time.sleep(0.001)

        def work():
            while len(ticks) < 3:
                time.sleep(0.001)
            begin = time.perf_counter()
            vostel.correlate(image, np.ones((15, 15)))
            span.extend((begin, time.perf_counter()))
            done.set()

        span = []
        self.assertEqual(run_all(tick, work), [])
        self.assertGreater(sum(span[0] < moment < span[1] for moment in ticks), 3)


if __name__ == "__main__":
    unittest.main()
