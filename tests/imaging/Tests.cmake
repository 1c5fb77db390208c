# Tests of imaging, one line each.
vostel_test(imaging/BSplineTest)
vostel_test(imaging/LabelBoxTest)
vostel_test(imaging/MatrixAndReflectionTest)
vostel_test(imaging/RasterFillsTest)
vostel_inner_test(imaging/AdaptiveThresholdTest)
vostel_inner_test(imaging/ConvolutionTest)
vostel_inner_test(imaging/GaussianKernelsTest)
vostel_inner_test(imaging/ImageConcatenationTest)
vostel_inner_test(imaging/MatrixProductTest)
vostel_inner_test(imaging/ResizeTest)
vostel_inner_test(imaging/RowThreadsTest)
vostel_inner_test(imaging/FourierTransformTest)
vostel_inner_test(imaging/ReconstructionFilterTest)
# GCC 12 mistakes the joining of short strings for overlapping copies.
set_source_files_properties(imaging/RasterFillsTest.cpp PROPERTIES
    COMPILE_OPTIONS "$<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>")
# Their allocator fails on request, so they are a program of their own.
vostel_test_program(VostelAllocationTests support/FailingAllocator.cpp)
target_link_libraries(VostelAllocationTests PRIVATE VostelCore)
target_compile_definitions(VostelAllocationTests PRIVATE VOSTEL_BUILDING)
vostel_test_source(VostelAllocationTests imaging/AllocationFailureTest)
vostel_test_source(VostelAllocationTests oshelpers/DirectoriesOutOfMemoryTest)
