# Tests of geometry, one line each.
vostel_inner_test(geometry/BinRowsTest)
vostel_inner_test(geometry/CoverageTest)
vostel_inner_test(geometry/HistogramTest)
vostel_inner_test(geometry/KeyholeTest)
vostel_inner_test(geometry/OutlineTest)
vostel_inner_test(geometry/OutlineTracingTest)
vostel_inner_test(geometry/PredicatesTest)
vostel_inner_test(geometry/ProfileSamplingTest)
vostel_inner_test(geometry/RoundedOutlineTest)
vostel_inner_test(geometry/ShapeMeasuresTest)
vostel_inner_test(geometry/StatisticsTest)
vostel_apart(VostelInnerTests geometry/BinRowsTest.cpp)    # as the one of float windows, it has values that are no numbers
