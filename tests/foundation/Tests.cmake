# Tests of foundation, one line each.
vostel_test(foundation/ContainersTest)
vostel_test(foundation/ContainerValuesTest)
vostel_test(foundation/GeometryTest)
vostel_test(foundation/ColourTest)
vostel_test(foundation/RunHelpersTest)
