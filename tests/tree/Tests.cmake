# Tests of the tree itself, by scripts that look at no build.
if(CMAKE_CROSSCOMPILING OR VOSTEL_SANITIZE)
    return()
endif()
foreach(script IN ITEMS floors floors_test papers papers_test)
    set(test ${VOSTEL_TEST_PREFIX}tree/${script})
    add_test(NAME ${test} COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/tree/${script}.py)
    set_tests_properties(${test} PROPERTIES TIMEOUT 60 ENVIRONMENT "PYTHONDONTWRITEBYTECODE=1")
endforeach()
