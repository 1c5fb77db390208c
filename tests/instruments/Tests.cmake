# Tests of instruments, one line each.
vostel_inner_test(instruments/ControlsTest)
vostel_inner_test(instruments/TextRectTest)
vostel_inner_test(instruments/TextMLTest)
vostel_inner_test(instruments/ImaInfoTest)
vostel_inner_test(instruments/NeighborVTest)
vostel_inner_test(instruments/MeasureLineTest)
vostel_inner_test(instruments/MeasureAnglesTest)
vostel_inner_test(instruments/LineProfileTest)
