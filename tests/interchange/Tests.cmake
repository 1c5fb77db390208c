# Tests of files, one line each.
vostel_inner_test(interchange/Base64Test)
vostel_inner_test(interchange/CocoTest)
vostel_inner_test(interchange/ForeignRegionsTest)
vostel_inner_test(interchange/GeoJsonTest)
vostel_inner_test(interchange/PointTableTest)
vostel_inner_test(interchange/RegionJsonTest)
vostel_inner_test(interchange/SampleHashTest)
vostel_inner_test(interchange/SessionFilesTest)
vostel_inner_test(interchange/SessionReadingTest)
vostel_inner_test(interchange/SessionRoundTripTest)
vostel_test_source(VostelAllocationTests interchange/SessionOutOfMemoryTest)

# The JSON library, as the library itself includes it.
target_include_directories(VostelInnerTests SYSTEM PRIVATE ${PROJECT_BINARY_DIR}/src/interchange/json-include)
set_property(SOURCE ${CMAKE_CURRENT_SOURCE_DIR}/interchange/ForeignRegionsTest.cpp APPEND PROPERTY
    COMPILE_DEFINITIONS "VOSTEL_FOREIGN_FOLDER=\"${CMAKE_CURRENT_SOURCE_DIR}/interchange/foreign\"")

# Canvases at random; instrumented builds are slow.
set_property(SOURCE ${CMAKE_CURRENT_SOURCE_DIR}/interchange/SessionRoundTripTest.cpp APPEND PROPERTY
    COMPILE_DEFINITIONS VOSTEL_SESSION_ROUNDS=$<IF:$<BOOL:${VOSTEL_SANITIZE}>,400,10000>)
