# Tests of bindings/dotnet by Mono, which load the built library.
if(CMAKE_CROSSCOMPILING OR VOSTEL_SANITIZE OR NOT BUILD_SHARED_LIBS)
    return()
endif()
find_program(VOSTEL_MCS mcs)
find_program(VOSTEL_MONO mono)
mark_as_advanced(VOSTEL_MCS VOSTEL_MONO)

set(dotnet ${CMAKE_CURRENT_LIST_DIR})
set(folder ${CMAKE_CURRENT_BINARY_DIR}/work/dotnet)
file(MAKE_DIRECTORY ${folder})

function(vostel_dotnet_test name)
    set(test ${VOSTEL_TEST_PREFIX}dotnet/${name})
    if(VOSTEL_MCS AND VOSTEL_MONO)
        add_test(NAME ${test} COMMAND ${ARGN} WORKING_DIRECTORY ${folder})
    else()
        add_test(NAME ${test} COMMAND ${CMAKE_COMMAND} -E echo "Mono is not installed")
        set_tests_properties(${test} PROPERTIES SKIP_REGULAR_EXPRESSION "not installed")
    endif()
    set_tests_properties(${test} PROPERTIES TIMEOUT 120 ENVIRONMENT
        "LD_LIBRARY_PATH=$<TARGET_FILE_DIR:VostelObj>;VOSTEL_SAMPLES=${PROJECT_SOURCE_DIR}/samples;CC=${CMAKE_C_COMPILER}")
endfunction()

file(GLOB sources CONFIGURE_DEPENDS ${dotnet}/tests/*.cs)
vostel_dotnet_test(assembly ${dotnet}/build ${folder})
vostel_dotnet_test(programs ${dotnet}/build ${folder} Cases ${sources})
vostel_dotnet_test(cases mono --debug Cases.exe)
vostel_dotnet_test(declarations ${dotnet}/tests/declarations_test.py)
vostel_dotnet_test(tutorial ${dotnet}/tests/tutorial_test.py)
set_tests_properties(${VOSTEL_TEST_PREFIX}dotnet/assembly PROPERTIES FIXTURES_SETUP ${VOSTEL_TEST_PREFIX}assembly)
set_tests_properties(${VOSTEL_TEST_PREFIX}dotnet/programs PROPERTIES
    FIXTURES_REQUIRED ${VOSTEL_TEST_PREFIX}assembly FIXTURES_SETUP ${VOSTEL_TEST_PREFIX}programs)
foreach(name IN ITEMS cases declarations tutorial)
    set_tests_properties(${VOSTEL_TEST_PREFIX}dotnet/${name} PROPERTIES FIXTURES_REQUIRED
        "${VOSTEL_TEST_PREFIX}assembly;${VOSTEL_TEST_PREFIX}programs")
endforeach()
