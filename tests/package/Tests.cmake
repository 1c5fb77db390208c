# Tests of package: the library as strangers meet it.

# Each public header compiles on its own.
file(GLOB_RECURSE headers CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR}/include ${PROJECT_SOURCE_DIR}/include/*.h)
add_library(HeadersStandAlone OBJECT)
foreach(header IN LISTS headers)
    string(MAKE_C_IDENTIFIER ${header} name)
    file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/headers/${name}.cpp CONTENT "#include <${header}>\n" @ONLY)
    target_sources(HeadersStandAlone PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/headers/${name}.cpp)
endforeach()
target_link_libraries(HeadersStandAlone PRIVATE VostelObj::VostelObj)
vostel_compile_rules(HeadersStandAlone)

# The rest looks at what users get, so instrumented builds leave it out.
if(VOSTEL_SANITIZE OR NOT CMAKE_BUILD_TYPE STREQUAL "Release")
    return()
endif()

set(package ${CMAKE_CURRENT_SOURCE_DIR}/package)
function(vostel_package_test name)
    add_test(NAME ${VOSTEL_TEST_PREFIX}package/${name} COMMAND ${ARGN})
    set_tests_properties(${VOSTEL_TEST_PREFIX}package/${name} PROPERTIES TIMEOUT 900 PROCESSORS 2 COST 1000)
endfunction()

vostel_package_test(Installed ${CMAKE_COMMAND} -D BUILD=${PROJECT_BINARY_DIR} -D SOURCE=${package}
    -D WORK=${CMAKE_CURRENT_BINARY_DIR}/installed -D COMPILER=${CMAKE_CXX_COMPILER}
    "-DTOOLCHAIN=${CMAKE_TOOLCHAIN_FILE}" "-DRUNNER=${CMAKE_CROSSCOMPILING_EMULATOR}"
    -D WIDGET=$<TARGET_EXISTS:VostelWidget>
    -P ${package}/UseInstalled.cmake)
if(NOT CMAKE_CROSSCOMPILING)
    vostel_package_test(Subdirectory ${CMAKE_COMMAND} -D SOURCE=${package} -D LIBRARY=${PROJECT_SOURCE_DIR}
        -D WORK=${CMAKE_CURRENT_BINARY_DIR}/subdirectory -P ${package}/UseSubdirectory.cmake)
endif()

# The lists are those of GNU tools: other compilers decorate names in their own way.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND VOSTEL_X86_64)
    foreach(library IN ITEMS VostelObj Tessik)
        if(WIN32)
            set(expected ${package}/exports/${library}.dll.txt)
        else()
            string(TOUPPER ${library}_1.0 node)
            set(expected ${package}/exports/lib${library}.so.txt ${node})
        endif()
        vostel_package_test(ExportedNames-${library}
            ${package}/exports/check $<TARGET_FILE:${library}> ${expected})
    endforeach()
endif()
