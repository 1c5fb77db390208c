# Tests of the packages, on what this build installs.
if(VOSTEL_SANITIZE OR CMAKE_CROSSCOMPILING OR NOT BUILD_SHARED_LIBS OR NOT CMAKE_BUILD_TYPE STREQUAL "Release")
    return()
endif()
set(scripts packaging_test)
if(TARGET vostel-viewer)
    list(APPEND scripts debian_test)    # the viewer has a package too
endif()
foreach(script IN LISTS scripts)
    set(test ${VOSTEL_TEST_PREFIX}packaging/${script})
    add_test(NAME ${test} COMMAND ${CMAKE_CURRENT_LIST_DIR}/tests/${script}.py ${PROJECT_BINARY_DIR})
    set_tests_properties(${test} PROPERTIES TIMEOUT 300 ENVIRONMENT "PYTHONDONTWRITEBYTECODE=1")
endforeach()
