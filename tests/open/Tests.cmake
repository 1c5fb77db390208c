# Tests of the open interface, one line each.
vostel_test(open/AgreementTest)
vostel_test(open/BadInputTest)
vostel_test(open/CanvasTableTest)
vostel_test(open/CppLayerTest)
vostel_test(open/EventsTest)
vostel_test(open/FrameTest)
vostel_test(open/HistoryTest)
vostel_test(open/ListenersTest)
vostel_test(open/MasksTest)
vostel_test(open/MeasuresTest)
vostel_test(open/OpenContrastTest)
vostel_test(open/OpenImageTest)
vostel_test(open/PeerFiguresTest)
vostel_test(open/ProfileTest)
vostel_test(open/ReadBackTest)
vostel_test(open/ReadOutsTest)
vostel_test(open/RoutinesTest)
vostel_test(open/TableTest)
vostel_test(open/ViewTest)
vostel_test_source(VostelAllocationTests open/OutOfMemoryTest)
if(NOT WIN32)    # the test says why
    vostel_test_source(VostelAllocationTests open/EveryAllocationTest)
    set_property(SOURCE ${CMAKE_CURRENT_SOURCE_DIR}/open/EveryAllocationTest.cpp APPEND PROPERTY
        COMPILE_DEFINITIONS VOSTEL_ALLOCATION_STEP=$<IF:$<BOOL:${VOSTEL_SANITIZE}>,3,1>)
endif()

# Pages of docs/ that tests hold against what the library does.
set_property(SOURCE ${CMAKE_CURRENT_SOURCE_DIR}/open/ListenersTest.cpp APPEND PROPERTY
    COMPILE_DEFINITIONS "VOSTEL_DOCS_FOLDER=\"${PROJECT_SOURCE_DIR}/docs\"")

# The table of functions is held against the header, so that none is forgotten.
foreach(program IN ITEMS VostelTests VostelAllocationTests)
    target_sources(${program} PRIVATE
        ${CMAKE_CURRENT_SOURCE_DIR}/open/BadArguments.cpp ${CMAKE_CURRENT_SOURCE_DIR}/open/OpenFunctions.cpp)
endforeach()
set_property(SOURCE ${CMAKE_CURRENT_SOURCE_DIR}/open/BadInputTest.cpp APPEND PROPERTY
    COMPILE_DEFINITIONS "VOSTEL_HEADER=\"${PROJECT_SOURCE_DIR}/include/vostel.h\"")

# Each has its own way to show an image and to add an object.
vostel_apart(VostelTests open/BadArguments.cpp open/FrameTest.cpp open/OpenContrastTest.cpp open/OpenImageTest.cpp
    open/PeerFiguresTest.cpp open/ReadOutsTest.cpp)
