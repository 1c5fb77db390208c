# The programs that the pages show, taken out of them, compiled and run.

# Writes the block of C++ in the page that begins with the given text to a file of the build.
function(vostel_page_code page begin file)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${page})
    file(READ ${PROJECT_SOURCE_DIR}/${page} text)
    string(FIND "${text}" "```cpp\n${begin}" from)
    if(from EQUAL -1)
        message(FATAL_ERROR "${page} shows no code that begins with: ${begin}")
    endif()
    math(EXPR from "${from} + 7")
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
