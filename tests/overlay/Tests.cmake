# Tests of overlay, one line each.
vostel_inner_test(overlay/VostelObjTest)
