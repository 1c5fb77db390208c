# Tests of oshelpers, one line each.
vostel_test(oshelpers/PathStringsTest)
vostel_test(oshelpers/DirectoriesTest)
