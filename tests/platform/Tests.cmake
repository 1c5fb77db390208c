# Tests of platform, one line each.

# What GDI draws and refuses; the same on both platforms.
vostel_test(platform/GdiLinesTest)
vostel_test(platform/GdiShapesTest)
vostel_test(platform/GdiObjectsTest)
vostel_test(platform/GdiPixelsTest)
vostel_test(platform/StretchTest)
foreach(program IN ITEMS VostelTests VostelInnerTests)
    if(WIN32)
        target_sources(${program} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/support/GdiObjectCountWin32.cpp)
        target_link_libraries(${program} PRIVATE gdi32 user32)
    else()
        target_sources(${program} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/support/GdiObjectCount.cpp)
    endif()
endforeach()
if(NOT WIN32)
    vostel_test(platform/PortableGdiTest)
    vostel_inner_test(platform/StretchVariantsTest)
    vostel_inner_test(platform/FileSavingTest)
    vostel_inner_test(platform/ProcessOfThreadsTest)
    # Makes files with the libraries that the library reads them by.
    vostel_inner_test(platform/PortablePicturesTest)
    vostel_test(platform/TiffPicturesTest)
    vostel_inner_test(platform/HostilePicturesTest)
    vostel_inner_test(platform/TurnedTiffTest)
    vostel_inner_test(platform/WebpReadingTest)
    set_property(SOURCE ${CMAKE_CURRENT_SOURCE_DIR}/platform/HostilePicturesTest.cpp APPEND PROPERTY
        COMPILE_DEFINITIONS "VOSTEL_HOSTILE_FOLDER=\"${CMAKE_CURRENT_SOURCE_DIR}/hostile\"")
endif()

# The desktop's classes, text, pictures, services and files.
vostel_test(platform/FrameworkClassesTest)
vostel_test(platform/TextTest)
vostel_test(platform/ImageTest)
vostel_inner_test(platform/PolylinesTest)
vostel_inner_test(platform/HostServicesTest)
vostel_inner_test(platform/HelperThreadsTest)
vostel_inner_test(platform/FilesTest)
vostel_inner_test(platform/SamplePicturesTest)
vostel_inner_test(platform/PictureLimitsTextTest)
vostel_test(platform/PictureLimitsTest)
vostel_test(platform/PictureLimitsOfEnvironmentTest)
set(test ${VOSTEL_TEST_PREFIX}platform/PictureLimitsOfEnvironment)
add_test(NAME ${test}Message COMMAND VostelTests "--source-file=*/platform/PictureLimitsOfEnvironmentTest.cpp")
set_tests_properties(${test}Message PROPERTIES
    PASS_REGULAR_EXPRESSION "VOSTEL_LIMITS: without effect is nonsense [(]"
    WORKING_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/work/platform/PictureLimitsOfEnvironmentTest
    ENVIRONMENT "${VOSTEL_TEST_ENVIRONMENT}")
set_property(TEST ${test}Test ${test}Message APPEND PROPERTY
    ENVIRONMENT "VOSTEL_LIMITS=pixels=20,nonsense,memory=70000000,file=1000")
if(NOT WIN32 AND NOT VOSTEL_SANITIZE)    # a sanitizer takes memory of its own
    vostel_inner_test(platform/PictureBudgetTest)
endif()
if(NOT WIN32)
    vostel_test(platform/TextWithoutFontsTest)
    set_property(TEST ${VOSTEL_TEST_PREFIX}platform/TextWithoutFontsTest APPEND PROPERTY
        ENVIRONMENT "FONTCONFIG_FILE=${CMAKE_CURRENT_SOURCE_DIR}/platform/no-fonts.conf")
endif()

# Pictures of conformance suites, where their packages are installed. An instrumented library is not one for Python to
# load.
if(BUILD_SHARED_LIBS AND NOT CMAKE_CROSSCOMPILING AND NOT VOSTEL_SANITIZE)
    set(test ${VOSTEL_TEST_PREFIX}platform/foreign_pictures_test)
    add_test(NAME ${test} COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/platform/foreign_pictures_test.py
        $<TARGET_FILE:VostelObj>)
    set_tests_properties(${test} PROPERTIES TIMEOUT 600 SKIP_RETURN_CODE 77 ENVIRONMENT "PYTHONDONTWRITEBYTECODE=1")
endif()
