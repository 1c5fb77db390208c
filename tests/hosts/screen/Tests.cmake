# A screen of its own for tests that move programs through the window system.
if(NOT WIN32 AND VOSTEL_BUILD_DEMO)
    find_package(X11 REQUIRED COMPONENTS Xtst)
    add_library(VostelTestScreen STATIC
        hosts/screen/Picture.cpp hosts/screen/XScreen.cpp hosts/screen/XScreenDrop.cpp)
    vostel_test_rules(VostelTestScreen)
    target_link_libraries(VostelTestScreen PUBLIC VostelObj::VostelObj X11::X11 X11::Xtst)
    target_include_directories(VostelTestScreen PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
endif()
