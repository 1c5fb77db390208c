# The viewer in a window of its own under Xvfb, moved by events of the window system.
if(TARGET vostel-viewer)
    set(qtTests ${CMAKE_CURRENT_SOURCE_DIR}/hosts/qt)
    vostel_test_program(QtViewerTests ${qtTests}/ViewerProcess.cpp)
    target_link_libraries(QtViewerTests PRIVATE VostelTestScreen VostelWidget)
    target_include_directories(QtViewerTests PRIVATE ${PROJECT_SOURCE_DIR}/hosts/qt)
    target_compile_definitions(QtViewerTests PRIVATE
        VOSTEL_VIEWER="$<TARGET_FILE:vostel-viewer>"
        VOSTEL_VIEWER_TOUR="$<TARGET_FILE:vostel-viewer-tour>" VOSTEL_SAMPLE="${PROJECT_SOURCE_DIR}/samples/coins.png"
        VOSTEL_QT_LSAN_OPTIONS="suppressions=${qtTests}/leaks-of-others.txt:print_suppressions=0")
    add_dependencies(QtViewerTests vostel-viewer vostel-viewer-tour)
    foreach(name IN ITEMS ViewerFilesTest ViewerDrawingTest ViewerRoutinesTest
            ViewerPicturesTest)
        vostel_test_source(QtViewerTests hosts/qt/${name})
        set_tests_properties(${VOSTEL_TEST_PREFIX}hosts/qt/${name} PROPERTIES COST 500)    # waits for its window
    endforeach()

    # Widget and dialogs without a window.
    vostel_test_program(QtWidgetTests ${qtTests}/WidgetTestMain.cpp)
    target_link_libraries(QtWidgetTests PRIVATE VostelWidget)
    target_include_directories(QtWidgetTests PRIVATE ${PROJECT_SOURCE_DIR}/hosts/qt)
    foreach(name IN ITEMS DialogTest RawSizeGuessTest WidgetKeysTest WidgetTest)
        vostel_test_source(QtWidgetTests hosts/qt/${name})
        set_tests_properties(${VOSTEL_TEST_PREFIX}hosts/qt/${name} PROPERTIES
            ENVIRONMENT "${VOSTEL_TEST_ENVIRONMENT};LSAN_OPTIONS=suppressions=${qtTests}/leaks-of-others.txt:print_suppressions=0;TMPDIR=${CMAKE_CURRENT_BINARY_DIR}/work/hosts/qt/${name}")
    endforeach()

    # The embedding that the widget's header shows, taken out of it and compiled.
    file(READ ${PROJECT_SOURCE_DIR}/hosts/qt/widget/VostelWidget.h header)
    string(REGEX MATCH "\n//     .*\n//\n// The first widget" block "${header}")
    if(NOT block)
        message(FATAL_ERROR "VostelWidget.h shows no embedding")
    endif()
    string(REGEX REPLACE "\n//\n// The first widget" "\n" block "${block}")
    string(REGEX REPLACE "\n//     " "\n    " block "${block}")
    file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/EmbeddedCanvas.cpp CONTENT
        "#include <VostelWidget.h>\n\n#include <QtWidgets>\n\nint main(int argc, char** argv)\n{${block}}\n" @ONLY)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS
        ${PROJECT_SOURCE_DIR}/hosts/qt/widget/VostelWidget.h)
    add_executable(EmbeddedCanvas ${CMAKE_CURRENT_BINARY_DIR}/EmbeddedCanvas.cpp)
    vostel_compile_rules(EmbeddedCanvas)
    target_link_libraries(EmbeddedCanvas PRIVATE VostelWidget)

    # The widget's library takes no global name but its own. Instrumented builds have names of their tools.
    if(NOT VOSTEL_SANITIZE)
        set(test ${VOSTEL_TEST_PREFIX}hosts/qt/WidgetNames)
        add_test(NAME ${test} COMMAND ${qtTests}/check-widget-names ${CMAKE_NM} $<TARGET_FILE:VostelWidget>)
        set_tests_properties(${test} PROPERTIES TIMEOUT 60)
    endif()

    # Every text of the interface has its Chinese one.
    set(test ${VOSTEL_TEST_PREFIX}hosts/qt/Translation)
    add_test(NAME ${test} COMMAND ${qtTests}/check-translation $<TARGET_FILE:Qt6::lupdate>
        ${PROJECT_SOURCE_DIR}/hosts/qt/viewer/translations/vostel_zh_CN.ts
        ${PROJECT_SOURCE_DIR}/hosts/qt ${PROJECT_SOURCE_DIR}/hosts/commands)
    set_tests_properties(${test} PROPERTIES TIMEOUT 60)
endif()
