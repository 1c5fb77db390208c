# The programs that the pages show, taken out of them, compiled and run.

# Writes the block of C or C++ in the page that begins with the given text to a file of the build, whose ending is the
# language.
function(vostel_page_code page begin file)
    cmake_path(GET file EXTENSION LAST_ONLY language)
    string(REPLACE "." "```" fence "${language}\n")
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${page})
    file(READ ${PROJECT_SOURCE_DIR}/${page} text)
    string(FIND "${text}" "${fence}${begin}" from)
    if(from EQUAL -1)
        message(FATAL_ERROR "${page} shows no code that begins with: ${begin}")
    endif()
    string(LENGTH "${fence}" skipped)
    math(EXPR from "${from} + ${skipped}")
    string(SUBSTRING "${text}" ${from} -1 text)
    string(FIND "${text}" "\n```\n" length)
    string(SUBSTRING "${text}" 0 ${length} text)
    file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/${file} CONTENT "${text}\n" @ONLY)
endfunction()

function(vostel_page_host name page begin)
    # The pages read better without casts from int to float.
    list(APPEND VOSTEL_FEWER_WARNINGS -Wno-implicit-int-float-conversion)
    vostel_page_code(${page} "${begin}" ${name}.cpp)
    add_executable(${name} ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
    target_link_libraries(${name} PRIVATE VostelObj::VostelObj)
    vostel_compile_rules(${name})
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
endfunction()

vostel_page_host(ReadmeHost README.md "#include <VostelObj.h>")
add_test(NAME ${VOSTEL_TEST_PREFIX}readme/Host COMMAND ReadmeHost)
vostel_page_host(HostingHost docs/hosting.md "// The window of any toolkit")
if(WIN32)
    target_link_libraries(HostingHost PRIVATE gdi32)
endif()
add_test(NAME ${VOSTEL_TEST_PREFIX}readme/HostingHost COMMAND HostingHost)
set_tests_properties(${VOSTEL_TEST_PREFIX}readme/Host ${VOSTEL_TEST_PREFIX}readme/HostingHost PROPERTIES
    TIMEOUT 60 ENVIRONMENT "${VOSTEL_TEST_ENVIRONMENT}")

# The open interface, on a picture of their own. The program in C is compiled as strictly as can be and linked without
# C++ where the library is shared.
vostel_page_code(README.md "#include <vostel.h>" ReadmeC.c)
add_executable(ReadmeC ${CMAKE_CURRENT_BINARY_DIR}/ReadmeC.c)
target_link_libraries(ReadmeC PRIVATE VostelObj::VostelObj)
set_target_properties(ReadmeC PROPERTIES C_STANDARD 11 C_STANDARD_REQUIRED ON C_EXTENSIONS OFF
    RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
if(NOT MSVC)
    target_compile_options(ReadmeC PRIVATE -Wall -Wextra -Wpedantic
        $<$<BOOL:${VOSTEL_WARNINGS_AS_ERRORS}>:-Werror>)
endif()
if(VOSTEL_SANITIZE)
    target_link_options(ReadmeC PRIVATE -fsanitize=address,undefined)
    # The library wants the runtime of the sanitizers for C++, which Clang links to programs in C++ alone.
    set_target_properties(ReadmeC PROPERTIES LINKER_LANGUAGE CXX)
endif()
if(MINGW)
    target_link_options(ReadmeC PRIVATE -static)
endif()
vostel_page_host(ReadmeCpp README.md "#include <vostel.hpp>")
foreach(program IN ITEMS ReadmeC ReadmeCpp)
    set(folder ${CMAKE_CURRENT_BINARY_DIR}/work/readme/${program})
    configure_file(${PROJECT_SOURCE_DIR}/samples/coins.png ${folder}/coins.png COPYONLY)
    add_test(NAME ${VOSTEL_TEST_PREFIX}readme/${program} COMMAND ${program} coins.png WORKING_DIRECTORY ${folder})
    set_tests_properties(${VOSTEL_TEST_PREFIX}readme/${program} PROPERTIES
        TIMEOUT 60 ENVIRONMENT "${VOSTEL_TEST_ENVIRONMENT}")
endforeach()
