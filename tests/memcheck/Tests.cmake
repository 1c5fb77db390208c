# Writers and routines in valgrind's memcheck. Sanitizers and it do not go together; ./check --long runs more.
if(BUILD_SHARED_LIBS AND NOT CMAKE_CROSSCOMPILING AND NOT VOSTEL_SANITIZE)
    set(test ${VOSTEL_TEST_PREFIX}memcheck/run)
    set(folder ${CMAKE_CURRENT_BINARY_DIR}/work/memcheck)
    file(MAKE_DIRECTORY ${folder})
    add_test(NAME ${test} COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/memcheck/run $<TARGET_FILE_DIR:VostelTests>)
    set_tests_properties(${test} PROPERTIES TIMEOUT 300 SKIP_RETURN_CODE 77 WORKING_DIRECTORY ${folder}
        ENVIRONMENT "TMPDIR=${folder}")
endif()
