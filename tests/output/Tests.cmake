# Tests of output, one line each.
vostel_test(output/DisplayMappingTest)
vostel_inner_test(output/ContrastRowsTest)
vostel_inner_test(output/FloatRangeTest)
vostel_inner_test(output/LabelPlaneTest)
vostel_inner_test(output/PlaneUploadsTest)
vostel_inner_test(output/ColorMapsTest)
vostel_inner_test(output/FloatWindowTest)
vostel_inner_test(output/ContrastTablesTest)
