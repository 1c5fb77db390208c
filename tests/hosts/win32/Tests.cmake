# The viewer for Windows under Wine, on a screen of its own and moved by events of the window system.
set(win32Tests
    ViewerDrawingTest
    ViewerFilesTest
    ViewerLanguageTest
    ViewerPicturesTest
    ViewerRoutinesTest
    ViewerSavesTest
    ViewerWorkTest)

# What moves it is a program for this machine. The sanitizers would see nothing of the viewer.
if(TARGET VostelTestScreen AND NOT VOSTEL_SANITIZE)
    vostel_test_program(Win32ViewerTests hosts/win32/WineViewer.cpp)
    target_link_libraries(Win32ViewerTests PRIVATE VostelTestScreen)
    target_compile_definitions(Win32ViewerTests PRIVATE
        VOSTEL_SAMPLE="${PROJECT_SOURCE_DIR}/samples/coins.png")
    foreach(name IN LISTS win32Tests)
        target_sources(Win32ViewerTests PRIVATE hosts/win32/${name}.cpp)
    endforeach()
endif()

# The build for Windows runs it from the one for this machine.
if(WIN32 AND VOSTEL_BUILD_DEMO)
    set(VOSTEL_NATIVE_BUILD ${PROJECT_SOURCE_DIR}/build/release CACHE PATH
        "A build of the tests for this machine, whose Win32ViewerTests move the viewer")
    foreach(helper DropFiles WindowTexts)
        add_executable(${helper} hosts/win32/${helper}.cpp)
        vostel_test_rules(${helper})
    endforeach()
    foreach(name IN LISTS win32Tests)
        set(test ${VOSTEL_TEST_PREFIX}hosts/win32/${name})
        set(folder ${CMAKE_CURRENT_BINARY_DIR}/work/hosts/win32/${name})
        file(MAKE_DIRECTORY ${folder})
        add_test(NAME ${test} COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/hosts/win32/in-a-window
            ${VOSTEL_NATIVE_BUILD}/bin/Win32ViewerTests "--source-file=*/hosts/win32/${name}.cpp" --no-path-filenames)
        set(environment "VOSTEL_WIN32_VIEWER=$<TARGET_FILE:vostel-viewer-win32>"
            "VOSTEL_DROP_FILES=$<TARGET_FILE:DropFiles>" "VOSTEL_WINDOW_TEXTS=$<TARGET_FILE:WindowTexts>"
            "TMPDIR=${folder}")
        set_tests_properties(${test} PROPERTIES TIMEOUT 600 WORKING_DIRECTORY ${folder}
            COST 2000    # one after another, waiting most of the time: first, beside the others
            RESOURCE_LOCK WineDesktop FAIL_REGULAR_EXPRESSION "test cases: *0 [|]"
            ENVIRONMENT "${environment}")
    endforeach()
endif()
