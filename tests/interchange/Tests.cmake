# Tests of files, one line each.
vostel_inner_test(interchange/CocoTest)
vostel_inner_test(interchange/ForeignRegionsTest)
vostel_inner_test(interchange/GeoJsonTest)
vostel_inner_test(interchange/PointTableTest)

# The JSON library, as the library itself includes it.
target_include_directories(VostelInnerTests SYSTEM PRIVATE ${PROJECT_BINARY_DIR}/src/interchange/json-include)
set_property(SOURCE ${CMAKE_CURRENT_SOURCE_DIR}/interchange/ForeignRegionsTest.cpp APPEND PROPERTY
    COMPILE_DEFINITIONS "VOSTEL_FOREIGN_FOLDER=\"${CMAKE_CURRENT_SOURCE_DIR}/interchange/foreign\"")
