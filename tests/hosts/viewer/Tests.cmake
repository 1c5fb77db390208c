# The viewer and its parts, in real windows under Xvfb, moved by events of the window system.
if(TARGET vostel-viewer-parts)
    set(viewerTests ${CMAKE_CURRENT_SOURCE_DIR}/hosts/viewer)
    vostel_test_program(ViewerTests ${viewerTests}/ViewerTestMain.cpp ${viewerTests}/Hand.cpp
        ${CMAKE_CURRENT_SOURCE_DIR}/saves/SmallDisk.cpp)
    target_link_libraries(ViewerTests PRIVATE VostelTestScreen vostel-viewer-parts)
    set_target_properties(ViewerTests PROPERTIES AUTOMOC OFF)
    target_compile_definitions(ViewerTests PRIVATE QT_NO_KEYWORDS VOSTEL_SAMPLES="${PROJECT_SOURCE_DIR}/samples"
        VOSTEL_VIEWER="$<TARGET_FILE:vostel-viewer>" VOSTEL_VIEWER_TOUR="$<TARGET_FILE:vostel-viewer-tour>")
    add_dependencies(ViewerTests vostel-viewer vostel-viewer-tour)
    foreach(name IN ITEMS
            ProgramTest
            canvas/CanvasModelTest
            canvas/DrawToolsTest
            canvas/MovingViewTest
            canvas/SelectToolTest
            docks/HistogramPanelTest
            docks/HistoryPanelTest
            docks/MeasuresPanelTest
            docks/ObjectsPanelTest
            docks/OverviewPanelTest
            docks/ProfilePanelTest
            documents/CalibrationTest
            documents/ClipboardTest
            documents/DocumentTest
            documents/PreviewTest
            documents/RawLayoutDialogTest
            documents/SavesTest
            documents/SessionKeeperTest
            documents/StackTest
            help/HelpWindowTest
            help/ViewerGuideTest
            process/BatchDialogTest
            process/BatchTest
            process/ProcessingTest
            process/RoutinesTest
            users/DrawingInARowTest
            users/NothingIsLostTest
            users/PicturesOfOthersTest
            users/SavesThatTellTest
            users/SeenOnThePictureTest
            users/TaskListTest
            window/AccessibleNamesTest
            window/ChineseTest
            window/DocksTest
            window/DropsTest
            window/KeptTest
            window/LayoutTest
            window/LiveDragTest
            window/MainWindowTest
            window/PicturesTest
            window/StackWindowTest)
        vostel_test_source(ViewerTests hosts/viewer/${name})
        set_tests_properties(${VOSTEL_TEST_PREFIX}hosts/viewer/${name} PROPERTIES
            ENVIRONMENT "${VOSTEL_TEST_ENVIRONMENT};LSAN_OPTIONS=suppressions=${CMAKE_CURRENT_SOURCE_DIR}/hosts/leaks-of-others.txt:print_suppressions=0;TMPDIR=${CMAKE_CURRENT_BINARY_DIR}/work/hosts/viewer/${name}")
    endforeach()
    # On screens of every density drawing hits the same image points, and nothing is cut off.
    foreach(ratio IN ITEMS 1.25 1.5 2 3)
        foreach(name IN ITEMS canvas/DrawTools window/Layout)
            set(test ${VOSTEL_TEST_PREFIX}hosts/viewer/${name}At${ratio})
            add_test(NAME ${test} COMMAND ViewerTests "--source-file=*/${name}Test.cpp" --no-path-filenames)
            get_test_property(${VOSTEL_TEST_PREFIX}hosts/viewer/${name}Test ENVIRONMENT environment)
            set_tests_properties(${test} PROPERTIES TIMEOUT 300
                ENVIRONMENT "${environment};QT_SCALE_FACTOR=${ratio}")
        endforeach()
    endforeach()

    # Every text of the interface has its Chinese one.
    set(test ${VOSTEL_TEST_PREFIX}hosts/viewer/Translation)
    set(sources ${PROJECT_SOURCE_DIR}/hosts/viewer)
    add_test(NAME ${test} COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/hosts/viewer/check-translation
        $<TARGET_FILE:Qt6::lupdate> ${sources}/translations/viewer_zh_CN.ts ${sources} -I ${sources})
    set_tests_properties(${test} PROPERTIES TIMEOUT 60)

    # And keeps what the program puts into it.
    set(test ${VOSTEL_TEST_PREFIX}hosts/viewer/translations_test)
    add_test(NAME ${test} COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/hosts/viewer/translations_test.py)
    set_tests_properties(${test} PROPERTIES TIMEOUT 60 ENVIRONMENT "PYTHONDONTWRITEBYTECODE=1")
endif()
