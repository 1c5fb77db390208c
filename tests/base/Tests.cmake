# Tests of base: the ground floor.
vostel_inner_test(base/CpuVariantsTest)
vostel_inner_test(base/PixelFillTest)
vostel_inner_test(base/ReflectTest)
vostel_inner_test(base/ReusedMemoryTest)
