# Tests of package: the library as strangers meet it.

# They look at what users get, so instrumented builds leave them out.
if(VOSTEL_SANITIZE OR NOT CMAKE_BUILD_TYPE STREQUAL "Release")
    return()
endif()

set(package ${CMAKE_CURRENT_SOURCE_DIR}/package)
function(vostel_package_test name)
    add_test(NAME ${VOSTEL_TEST_PREFIX}package/${name} COMMAND ${ARGN})
    set_tests_properties(${VOSTEL_TEST_PREFIX}package/${name} PROPERTIES TIMEOUT 900 PROCESSORS 2 COST 1000)
endfunction()

function(vostel_installed_test name build)
    vostel_package_test(${name} ${CMAKE_COMMAND} -D BUILD=${build} -D SOURCE=${package}
        -D WORK=${CMAKE_CURRENT_BINARY_DIR}/${name} -D COMPILER=${CMAKE_CXX_COMPILER}
        -D CMAKE_CPACK_COMMAND=${CMAKE_CPACK_COMMAND} ${ARGN} -P ${package}/UseInstalled.cmake)
endfunction()
function(vostel_subdirectory_test name)
    list(JOIN ARGN " " settings)
    vostel_package_test(${name} ${CMAKE_COMMAND} -D SOURCE=${package} -D LIBRARY=${PROJECT_SOURCE_DIR}
        -D WORK=${CMAKE_CURRENT_BINARY_DIR}/Subdirectory -D COMPILER=${CMAKE_CXX_COMPILER}
        "-DSETTINGS=${settings}" -P ${package}/UseSubdirectory.cmake)
endfunction()

vostel_installed_test(Installed ${PROJECT_BINARY_DIR} "-DTOOLCHAIN=${CMAKE_TOOLCHAIN_FILE}"
    "-DRUNNER=${CMAKE_CROSSCOMPILING_EMULATOR}" -D WIDGET=$<TARGET_EXISTS:VostelWidget>)
if(NOT CMAKE_CROSSCOMPILING)
    # One build folder, first for shared and then for static libraries, which take the same objects.
    # abidiff wants debug information.
    vostel_subdirectory_test(Subdirectory -UBUILD_SHARED_LIBS -DVOSTEL_INSTALL=OFF -DCMAKE_CXX_FLAGS=-g
        -DCMAKE_UNITY_BUILD=ON)
    vostel_subdirectory_test(StaticSubdirectory -DBUILD_SHARED_LIBS=OFF -DVOSTEL_INSTALL=ON)
    vostel_installed_test(StaticInstalled ${CMAKE_CURRENT_BINARY_DIR}/Subdirectory -D STATIC=ON)
    set_tests_properties(${VOSTEL_TEST_PREFIX}package/Subdirectory PROPERTIES
        FIXTURES_SETUP ${VOSTEL_TEST_PREFIX}shared)
    set_tests_properties(${VOSTEL_TEST_PREFIX}package/StaticSubdirectory PROPERTIES
        FIXTURES_REQUIRED ${VOSTEL_TEST_PREFIX}shared FIXTURES_SETUP ${VOSTEL_TEST_PREFIX}static)
    set_tests_properties(${VOSTEL_TEST_PREFIX}package/StaticInstalled PROPERTIES
        FIXTURES_REQUIRED ${VOSTEL_TEST_PREFIX}static)

    # Types are told apart as GCC describes them.
    find_program(ABIDIFF abidiff)
    if(ABIDIFF AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND VOSTEL_X86_64)
        foreach(library IN ITEMS libVostelObj dialogs/libTessik)
            cmake_path(GET library FILENAME name)
            vostel_package_test(Abi-${name} ${package}/abi/check
                ${CMAKE_CURRENT_BINARY_DIR}/Subdirectory/vostel/src/${library}.so)
            set_tests_properties(${VOSTEL_TEST_PREFIX}package/Abi-${name} PROPERTIES
                FIXTURES_REQUIRED ${VOSTEL_TEST_PREFIX}shared)
            set_property(TEST ${VOSTEL_TEST_PREFIX}package/StaticSubdirectory APPEND PROPERTY
                DEPENDS ${VOSTEL_TEST_PREFIX}package/Abi-${name})    # replaces the library
        endforeach()
    endif()
endif()

# The lists are those of GNU tools: other compilers decorate names in their own way.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND VOSTEL_X86_64 AND BUILD_SHARED_LIBS)
    foreach(library IN ITEMS VostelObj Tessik)
        if(WIN32)
            set(expected ${package}/exports/${library}.dll.txt)
        else()
            string(TOUPPER ${library}_1.[01] node)
            set(expected ${package}/exports/lib${library}.so.txt ${node})
        endif()
        vostel_package_test(ExportedNames-${library}
            ${package}/exports/check $<TARGET_FILE:${library}> ${expected})
        vostel_package_test(ThreadEnd-${library} ${package}/threads/check $<TARGET_FILE:${library}>)
    endforeach()
endif()

# The public headers with the build's compiler and with the other one, and beside what hosts are written with.
set(compilers ${CMAKE_CXX_COMPILER})
if(NOT CMAKE_CROSSCOMPILING)
    set(compilers g++ clang++)
endif()
vostel_package_test(Headers ${package}/headers/compile-headers ${PROJECT_SOURCE_DIR}/include ${compilers})
if(NOT WIN32)
    foreach(toolkit IN ITEMS Xlib Xproto Qt wxWidgets GTK SDL OpenCV ODBC)
        vostel_package_test(Headers-${toolkit}
            ${package}/headers/beside-toolkit ${PROJECT_SOURCE_DIR}/include ${toolkit} ${compilers})
        set_tests_properties(${VOSTEL_TEST_PREFIX}package/Headers-${toolkit} PROPERTIES
            SKIP_RETURN_CODE 77 PROCESSORS 1 COST 10)
    endforeach()
endif()
