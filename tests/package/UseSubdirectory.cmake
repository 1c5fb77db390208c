# Builds a project that takes the library in by add_subdirectory, without a build type as strangers do.
# cmake -D WORK=... -D SOURCE=... -D LIBRARY=... -D COMPILER=... -D "SETTINGS=..." -P UseSubdirectory.cmake
include(${CMAKE_CURRENT_LIST_DIR}/Run.cmake)

separate_arguments(SETTINGS)
run(${CMAKE_COMMAND} -G Ninja -S ${SOURCE}/subdirectory -B ${WORK} -D VOSTEL_SOURCE=${LIBRARY}
    -D CMAKE_CXX_COMPILER=${COMPILER} ${SETTINGS})
run(${CMAKE_COMMAND} --build ${WORK})
foreach(program IN ITEMS host dialogs)
    run(${WORK}/${program})
endforeach()
