# Exported calls without memory. Not on Windows: the names are those of the Linux library, half of the calls that
# draw are the system's own, and its codecs ask another allocator. What differs there is in src/platform/win32/, and
# the tests of saves, sessions, folders and routines without memory run on both.
if(NOT WIN32)
    vostel_test_source(VostelAllocationTests allocations/EveryClassicAllocationTest)
    target_sources(VostelAllocationTests PRIVATE
        ${CMAKE_CURRENT_SOURCE_DIR}/allocations/CanvasCalls.cpp
        ${CMAKE_CURRENT_SOURCE_DIR}/allocations/ClassCalls.cpp
        ${CMAKE_CURRENT_SOURCE_DIR}/allocations/ClassicWorld.cpp
        ${CMAKE_CURRENT_SOURCE_DIR}/allocations/RoutineCalls.cpp)
    set_property(SOURCE ${CMAKE_CURRENT_SOURCE_DIR}/allocations/EveryClassicAllocationTest.cpp APPEND PROPERTY
        COMPILE_DEFINITIONS VOSTEL_ALLOCATION_STEP=$<IF:$<BOOL:${VOSTEL_SANITIZE}>,17,1>
        "VOSTEL_EXPORTED_NAMES=\"${CMAKE_CURRENT_SOURCE_DIR}/package/exports/libVostelObj.so.txt\"")
endif()
