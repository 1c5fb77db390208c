# Installs a build, moves the tree, and uses it from there: with find_package, without a build type as
# strangers do, and with pkg-config.
# cmake -D BUILD=... -D WORK=... -D SOURCE=... [-D TOOLCHAIN=...] [-D RUNNER=...] -D COMPILER=... -P UseInstalled.cmake
include(${CMAKE_CURRENT_LIST_DIR}/Run.cmake)

file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/first)
file(RENAME ${WORK}/first ${WORK}/prefix)    # an install tree may be moved, so no path in it is absolute

set(settings -D CMAKE_PREFIX_PATH=${WORK}/prefix)
set(suffix "")
if(TOOLCHAIN)
    list(APPEND settings -D CMAKE_TOOLCHAIN_FILE=${TOOLCHAIN} -D CMAKE_FIND_ROOT_PATH_MODE_PACKAGE=BOTH)
    set(suffix .exe)
endif()
run(${CMAKE_COMMAND} -G Ninja -S ${SOURCE}/installed -B ${WORK}/build ${settings})
run(${CMAKE_COMMAND} --build ${WORK}/build)
foreach(program IN ITEMS host dialogs)
    run(${RUNNER} ${WORK}/build/${program}${suffix})
endforeach()

find_program(PKG_CONFIG NAMES pkgconf pkg-config)
if(TOOLCHAIN OR NOT PKG_CONFIG)
    return()
endif()
file(GLOB_RECURSE package ${WORK}/prefix/*/vostelobj.pc)
cmake_path(GET package PARENT_PATH packages)
set(ENV{PKG_CONFIG_PATH} ${packages})
run(${PKG_CONFIG} --cflags --libs vostelobj)
separate_arguments(flags UNIX_COMMAND "${RUN_OUTPUT}")
run(${PKG_CONFIG} --variable=libdir vostelobj)
string(STRIP "${RUN_OUTPUT}" libraries)
run(${COMPILER} ${SOURCE}/Host.cpp -o ${WORK}/host ${flags})
set(ENV{LD_LIBRARY_PATH} ${libraries})
run(${WORK}/host)
