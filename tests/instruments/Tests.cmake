# Tests of instruments, one line each.
vostel_inner_test(instruments/ControlsTest)
vostel_inner_test(instruments/TextRectTest)
