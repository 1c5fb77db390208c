# Tests of dialogs, one line each.
vostel_test(dialogs/TessikTest)
if(WIN32)
    vostel_inner_test(dialogs/win32/Win32DialogsTest)
    vostel_inner_test(dialogs/win32/NumberTextTest)
    target_sources(VostelInnerTests PRIVATE ${PROJECT_SOURCE_DIR}/src/dialogs/win32/NumberText.cpp)
else()
    vostel_test(dialogs/portable/PortableDialogsTest)
endif()
