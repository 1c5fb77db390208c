# Tests of imaging, one line each.
vostel_inner_test(imaging/AdaptiveThresholdTest)
vostel_inner_test(imaging/ConvolutionTest)
vostel_inner_test(imaging/GaussianKernelsTest)
vostel_inner_test(imaging/ImageConcatenationTest)
vostel_inner_test(imaging/MatrixProductTest)
vostel_inner_test(imaging/ResizeTest)
vostel_inner_test(imaging/RowThreadsTest)
