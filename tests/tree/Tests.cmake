# Tests of the tree itself, by scripts that look at no build.
if(CMAKE_CROSSCOMPILING OR VOSTEL_SANITIZE)
    return()
endif()
foreach(script IN ITEMS floors floors_test papers papers_test writes writes_test)
    set(test ${VOSTEL_TEST_PREFIX}tree/${script})
    add_test(NAME ${test} COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/tree/${script}.py)
    set_tests_properties(${test} PROPERTIES TIMEOUT 60 ENVIRONMENT "PYTHONDONTWRITEBYTECODE=1")
endforeach()

# Without Doxygen there is no reference to look at.
if(VOSTEL_DOXYGEN)
    add_test(NAME ${VOSTEL_TEST_PREFIX}tree/reference COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/tree/reference
        ${VOSTEL_DOXYGEN} ${VOSTEL_DOCS_DIR}/Doxyfile ${PROJECT_SOURCE_DIR}/include)
else()
    add_test(NAME ${VOSTEL_TEST_PREFIX}tree/reference COMMAND ${CMAKE_COMMAND} -E echo "Doxygen is not installed")
    set_tests_properties(${VOSTEL_TEST_PREFIX}tree/reference PROPERTIES SKIP_REGULAR_EXPRESSION "not installed")
endif()
set_tests_properties(${VOSTEL_TEST_PREFIX}tree/reference PROPERTIES TIMEOUT 60)
