#!/usr/bin/env python3
"""Listeners hear what happens, may do anything, and cannot break the call that they hear of."""

import gc
import sys
import unittest
import weakref

import vostel
from canvas_case import CanvasCase, ramp
from vostel import Events


class Listeners(CanvasCase):
    def setUp(self):
        super().setUp()
        self.heard = []

    def names(self):
        return [event.type.name for event in self.heard]

    def test_events_tell_what_where_and_of_which_object(self):
        self.canvas.listen(self.heard.append)
        region = self.canvas.add_rectangle(1, 1, 9, 9)
        self.assertEqual(self.names(), ["OBJECT_ADDED", "HISTORY_CHANGED", "FRAME_STALE"])
        self.assertEqual([event.object for event in self.heard], [region, None, None])
        self.assertTrue(all(event.canvas is self.canvas for event in self.heard))

    def test_a_listener_hears_what_it_asked_for_until_it_ends(self):
        with self.canvas.listen(self.heard.append, Events.OBJECT_ADDED | Events.OBJECT_REMOVED) as subscription:
            self.canvas.add_rectangle(1, 1, 9, 9).remove()
            self.assertIn("to <vostel.Canvas", repr(subscription))
        self.canvas.add_rectangle(1, 1, 9, 9)
        self.assertEqual(self.names(), ["OBJECT_ADDED", "OBJECT_REMOVED"])
        subscription.close()
        self.assertIn("ended", repr(subscription))

    def test_a_listener_may_change_the_canvas_end_itself_and_close_it(self):
        def grow(event):
            self.heard.append(event)
            subscription.close()
            gc.collect()
            self.canvas.add_length((1, 1), (5, 5))

        subscription = self.canvas.listen(grow, Events.OBJECT_ADDED)
        self.canvas.add_rectangle(1, 1, 9, 9)
        self.assertEqual((len(self.heard), len(self.canvas.objects)), (1, 2))
        last = self.canvas.listen(self.heard.append, Events.CANVAS_DESTROYED)
        self.canvas.listen(lambda event: self.canvas.close(), Events.OBJECT_REMOVED)
        self.canvas.objects[0].remove()
        self.assertTrue(self.canvas.closed)
        self.assertEqual(self.names()[-1], "CANVAS_DESTROYED")
        last.close()

    def test_what_a_listener_raises_is_reported_and_the_call_goes_on(self):
        reported = []
        self.addCleanup(setattr, sys, "unraisablehook", sys.unraisablehook)
        sys.unraisablehook = lambda problem: reported.append(problem.exc_value.args[0])

        def fail(event):
            raise KeyError(event.type.name)

        subscription = self.canvas.listen(fail)
        self.addCleanup(subscription.close)
        self.canvas.listen(self.heard.append)
        region = self.canvas.add_rectangle(1, 1, 9, 9, name="bore")
        self.assertEqual((region.name, self.canvas.history.undo_count), ("bore", 1))
        self.assertEqual(reported, self.names())
        self.assertTrue(reported)

    def test_a_canvas_goes_with_listeners_that_know_it(self):
        canvas = vostel.Canvas(50, 50)
        known = weakref.ref(canvas)
        canvas.listen(lambda event, keeps=canvas: None)
        del canvas
        gc.collect()
        self.assertIsNone(known())

    def test_the_other_of_two_linked_canvases_is_heard(self):
        other = vostel.Canvas(200, 150)
        other.show(ramp())
        other.link(self.canvas)
        other.listen(self.heard.append, Events.VIEW_CHANGED)
        self.canvas.view = 3, 1, 1
        self.assertEqual([event.canvas for event in self.heard], [other])

    def test_a_thousand_listeners_come_and_go(self):
        for _ in range(1000):
            self.canvas.listen(self.heard.append, Events.OBJECT_ADDED).close()
        self.canvas.add_rectangle(1, 1, 9, 9)
        self.assertEqual(self.heard, [])


if __name__ == "__main__":
    unittest.main()
