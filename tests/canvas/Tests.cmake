# Tests of canvas, one line each.
vostel_test(canvas/CanvasFrameTest)
vostel_test(canvas/CanvasEventsTest)
vostel_test(canvas/CanvasPaintTest)
vostel_test(canvas/CanvasImageTest)
vostel_test(canvas/CanvasLabelTest)
vostel_test(canvas/ContrastTest)
vostel_test(canvas/CanvasLoadingTest)
vostel_test(canvas/PictureLoadingTest)
