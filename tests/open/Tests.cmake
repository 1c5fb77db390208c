# Tests of the open interface, one line each.
vostel_test(open/FrameTest)
vostel_test(open/HistoryTest)
vostel_test(open/OpenContrastTest)
vostel_test(open/OpenImageTest)
vostel_test(open/ViewTest)
