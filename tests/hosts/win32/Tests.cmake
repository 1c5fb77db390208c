# The viewer on a display of its own, driven by real events. Its pictures of the screen stay in the folder.
if(WIN32 AND VOSTEL_BUILD_DEMO)
    set(here ${CMAKE_CURRENT_LIST_DIR})
    set(folder ${CMAKE_CURRENT_BINARY_DIR}/work/hosts/win32/session)
    add_executable(DropFiles ${here}/DropFiles.cpp)
    vostel_compile_rules(DropFiles)
    add_test(NAME ${VOSTEL_TEST_PREFIX}hosts/win32/ViewerSession
        COMMAND ${here}/in-a-window ${here}/viewer-session
            $<TARGET_FILE:vostel-viewer-win32> $<TARGET_FILE:DropFiles> ${folder} ${PROJECT_SOURCE_DIR}/samples)
    set_tests_properties(${VOSTEL_TEST_PREFIX}hosts/win32/ViewerSession PROPERTIES TIMEOUT 900)
endif()
