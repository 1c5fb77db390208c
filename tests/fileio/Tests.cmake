# Tests of fileio, one line each.
vostel_test(fileio/BmpFilesTest)
vostel_test(fileio/BmpBadInputTest)
vostel_inner_test(fileio/FilePathsTest)
vostel_inner_test(fileio/InterleaveRowsTest)
vostel_test(fileio/ParameterFilesTest)
vostel_test(fileio/RawDataFilesTest)
