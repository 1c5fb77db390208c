# Tests of the scripts at the top, on machines that are made up for them.
if(CMAKE_CROSSCOMPILING OR VOSTEL_SANITIZE)
    return()
endif()
foreach(script IN ITEMS setup_test demo_test check_test)
    set(test ${VOSTEL_TEST_PREFIX}setup/${script})
    add_test(NAME ${test} COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/setup/${script}.py)
    set_tests_properties(${test} PROPERTIES TIMEOUT 120 ENVIRONMENT "PYTHONDONTWRITEBYTECODE=1")
endforeach()
