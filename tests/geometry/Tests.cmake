# Tests of geometry, one line each.
vostel_inner_test(geometry/BinRowsTest)
vostel_inner_test(geometry/CoverageTest)
vostel_inner_test(geometry/HistogramTest)
vostel_inner_test(geometry/OutlineTest)
vostel_inner_test(geometry/PredicatesTest)
vostel_inner_test(geometry/ProfileSamplingTest)
vostel_inner_test(geometry/ShapeMeasuresTest)
vostel_inner_test(geometry/StatisticsTest)
