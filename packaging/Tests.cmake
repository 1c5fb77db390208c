# Tests of the packages, on what this build installs.
if(VOSTEL_SANITIZE OR CMAKE_CROSSCOMPILING OR NOT BUILD_SHARED_LIBS OR NOT CMAKE_BUILD_TYPE STREQUAL "Release")
    return()
endif()
foreach(script IN ITEMS packaging_test debian_test)
    set(test ${VOSTEL_TEST_PREFIX}packaging/${script})
    add_test(NAME ${test} COMMAND ${CMAKE_CURRENT_LIST_DIR}/tests/${script}.py ${PROJECT_BINARY_DIR})
    set_tests_properties(${test} PROPERTIES TIMEOUT 300 ENVIRONMENT "PYTHONDONTWRITEBYTECODE=1")
endforeach()
