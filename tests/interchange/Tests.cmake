# Tests of files, one line each.
vostel_inner_test(interchange/Base64Test)
vostel_inner_test(interchange/CocoTest)
vostel_inner_test(interchange/DeflatedPixelsTest)
vostel_inner_test(interchange/ForeignRegionsTest)
vostel_inner_test(interchange/GeoJsonTest)
vostel_test(interchange/ImageJCanvasTest)
vostel_inner_test(interchange/ImageJFilesTest)
vostel_inner_test(interchange/ImageJForeignTest)
vostel_test(interchange/LabelsTest)
vostel_inner_test(interchange/PointTableTest)
vostel_test(interchange/RegionCallsTest)
vostel_inner_test(interchange/RegionJsonTest)
vostel_inner_test(interchange/SampleHashTest)
vostel_inner_test(interchange/SessionClassicTest)
vostel_inner_test(interchange/SessionFilesTest)
vostel_inner_test(interchange/SessionReadingTest)
vostel_inner_test(interchange/SessionRoundTripTest)
vostel_inner_test(interchange/ZipArchiveTest)

vostel_test_source(VostelAllocationTests interchange/SessionOutOfMemoryTest)
if(NOT WIN32)
    vostel_inner_test(interchange/FullDiskTest)
    vostel_inner_test(interchange/KilledSaveTest)
endif()

# The JSON library, as the library itself includes it.
target_include_directories(VostelInnerTests SYSTEM PRIVATE ${PROJECT_BINARY_DIR}/src/interchange/json-include)
set_property(SOURCE ${CMAKE_CURRENT_SOURCE_DIR}/interchange/ForeignRegionsTest.cpp
    ${CMAKE_CURRENT_SOURCE_DIR}/interchange/ImageJForeignTest.cpp APPEND PROPERTY
    COMPILE_DEFINITIONS "VOSTEL_FOREIGN_FOLDER=\"${CMAKE_CURRENT_SOURCE_DIR}/interchange/foreign\"")

# Canvases at random, and damaged files: instrumented builds are slow, and so is Wine, where nothing but the
# platform differs.
foreach(test IN ITEMS SessionClassicTest SessionReadingTest SessionRoundTripTest)
    set_property(SOURCE ${CMAKE_CURRENT_SOURCE_DIR}/interchange/${test}.cpp APPEND PROPERTY COMPILE_DEFINITIONS
        VOSTEL_SESSION_ROUNDS=$<IF:$<BOOL:${VOSTEL_SANITIZE}>,400,$<IF:$<BOOL:${WIN32}>,1500,10000>>
        VOSTEL_DAMAGE_STEP=$<IF:$<BOOL:${VOSTEL_SANITIZE}>,17,$<IF:$<BOOL:${WIN32}>,11,3>>)
endforeach()

# Drawings.
set(ZLIB_USE_STATIC_LIBS ${WIN32})
find_package(ZLIB REQUIRED)
target_link_libraries(VostelTests PRIVATE ZLIB::ZLIB)

vostel_test(interchange/DrawingPdfTest)
vostel_test(interchange/DrawingSvgTest)
if(NOT WIN32)
    vostel_test(interchange/DrawingWithoutFontsTest)
    set_property(TEST ${VOSTEL_TEST_PREFIX}interchange/DrawingWithoutFontsTest APPEND PROPERTY
        ENVIRONMENT "FONTCONFIG_FILE=${CMAKE_CURRENT_SOURCE_DIR}/platform/no-fonts.conf")
endif()
if(NOT WIN32 AND NOT VOSTEL_SANITIZE)    # shown by programs of others, in the same way whoever built the library
    foreach(test IN ITEMS interchange/DrawingPdfRenderedTest interchange/DrawingSvgRenderedTest)
        vostel_test(${test})
        set_tests_properties(${VOSTEL_TEST_PREFIX}${test} PROPERTIES SKIP_REGULAR_EXPRESSION "not installed")
    endforeach()
endif()

# ImageJ itself opens our lists, where it is installed. An instrumented library is not one for Python to load.
if(BUILD_SHARED_LIBS AND NOT CMAKE_CROSSCOMPILING AND NOT VOSTEL_SANITIZE)
    set(test ${VOSTEL_TEST_PREFIX}interchange/imagej_test)
    add_test(NAME ${test} COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/interchange/imagej_test.py $<TARGET_FILE:VostelObj>)
    set_tests_properties(${test} PROPERTIES TIMEOUT 300 SKIP_RETURN_CODE 77 ENVIRONMENT "PYTHONDONTWRITEBYTECODE=1")
endif()

# Programs of others read what the library writes; skipped where one of them is not installed.
if(NOT CMAKE_CROSSCOMPILING AND NOT VOSTEL_SANITIZE)
    add_executable(RegionWriter interchange/programs/RegionWriter.cpp)
    target_link_libraries(RegionWriter PRIVATE VostelObj::VostelObj)
    vostel_test_rules(RegionWriter)
    set(test ${VOSTEL_TEST_PREFIX}interchange/check-regions)
    add_test(NAME ${test} COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/interchange/programs/check-regions
        $<TARGET_FILE:RegionWriter>)
    set_tests_properties(${test} PROPERTIES TIMEOUT 120 SKIP_RETURN_CODE 77 ENVIRONMENT "PYTHONDONTWRITEBYTECODE=1")
endif()

# Each names its own reading and writing in the shortest way.
vostel_apart(VostelInnerTests interchange/GeoJsonTest.cpp interchange/ImageJFilesTest.cpp interchange/PointTableTest.cpp)
vostel_apart(VostelTests interchange/DrawingSvgRenderedTest.cpp interchange/ImageJCanvasTest.cpp
    interchange/RegionCallsTest.cpp)
