# Tests of base: the ground floor.
vostel_inner_test(base/PixelFillTest)
