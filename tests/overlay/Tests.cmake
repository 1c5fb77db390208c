# Tests of overlay, one line each.
vostel_inner_test(overlay/VostelObjTest)
vostel_inner_test(overlay/VostelMPointTest)
vostel_inner_test(overlay/VostelPolygonTest)
vostel_inner_test(overlay/VostelSplineTest)
