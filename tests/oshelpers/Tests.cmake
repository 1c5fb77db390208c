# Tests of oshelpers, one line each.
vostel_test(oshelpers/DirectoriesTest)
vostel_test(oshelpers/FileDialogsTest)
vostel_test(oshelpers/PathStringsTest)
