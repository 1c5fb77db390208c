# The widget around a canvas, and its dialogs, without a window.
if(TARGET VostelWidget)
    set(qtTests ${CMAKE_CURRENT_SOURCE_DIR}/hosts/qt)
    vostel_test_program(QtWidgetTests ${qtTests}/WidgetTestMain.cpp)
    target_link_libraries(QtWidgetTests PRIVATE VostelWidget)
    target_include_directories(QtWidgetTests PRIVATE ${PROJECT_SOURCE_DIR}/hosts/qt)
    foreach(name IN ITEMS DialogTest RawSizeGuessTest WidgetKeysTest WidgetTest)
        vostel_test_source(QtWidgetTests hosts/qt/${name})
        set_tests_properties(${VOSTEL_TEST_PREFIX}hosts/qt/${name} PROPERTIES
            ENVIRONMENT "${VOSTEL_TEST_ENVIRONMENT};LSAN_OPTIONS=suppressions=${CMAKE_CURRENT_SOURCE_DIR}/hosts/leaks-of-others.txt:print_suppressions=0;TMPDIR=${CMAKE_CURRENT_BINARY_DIR}/work/hosts/qt/${name}")
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
endif()
