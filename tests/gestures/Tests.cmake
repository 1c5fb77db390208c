# Long work on canvases, which ./check --long makes longer. Objects of GDI on Windows are counted by the tests of
# canvas/ and overlay/, which run there too.
if(NOT WIN32)
    vostel_test(gestures/LongWorkTest)
    if(VOSTEL_SANITIZE)
        set_property(SOURCE ${CMAKE_CURRENT_SOURCE_DIR}/gestures/LongWorkTest.cpp APPEND PROPERTY
            COMPILE_DEFINITIONS VOSTEL_SANITIZED)
    endif()
endif()
